#include "platform/http1.h"

#include <glib.h>

namespace qv {
namespace {

constexpr char kDelete = 0x7F;

void AppendEncoded(std::string& to, char c) {
    static constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    to += '%';
    to += kDigits[byte >> 4];
    to += kDigits[byte & 15];
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == kDelete; }

}  // namespace

void HTTP1::SetURL(std::string_view url) {
    url_ = std::string(url);
    parts_ = SplitUrl(url);
}

std::string HTTP1::Authorization() const {
    const std::string credentials = User + ":" + Password;
    gchar* encoded = g_base64_encode(reinterpret_cast<const guchar*>(credentials.data()), credentials.size());
    std::string value = std::string("Basic ") + encoded;
    g_free(encoded);
    return value;
}

std::string EncodeControls(std::string_view text) {
    std::string encoded;
    for (const char c : text) {
        if (IsControl(c))
            AppendEncoded(encoded, c);
        else
            encoded += c;
    }
    return encoded;
}

std::vector<std::string> RequestHeaderLines(std::string_view text) {
    constexpr std::string_view kLineEnd = "\r\n";
    std::vector<std::string> lines;
    while (!text.empty()) {
        const auto end = text.find(kLineEnd);
        if (end != 0) lines.push_back(EncodeControls(text.substr(0, end)));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + kLineEnd.size());
    }
    return lines;
}

std::string RequestTarget(std::string_view path) {
    std::string target;
    if (path.empty() || path.front() != '/') target = "/";
    for (const char c : path.substr(0, path.find('#'))) {
        if (IsControl(c) || c == ' ')
            AppendEncoded(target, c);
        else
            target += c;
    }
    return target;
}

}  // namespace qv
