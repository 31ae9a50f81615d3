#include "platform/http1.h"

#include <glib.h>

namespace qv {
namespace {

bool MustBeEncoded(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte <= 0x20 || byte == 0x7F;
}

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

std::string RequestTarget(std::string_view path) {
    static constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string target;
    if (path.empty() || path.front() != '/') target = "/";
    for (const char c : path.substr(0, path.find('#'))) {
        if (!MustBeEncoded(c)) {
            target += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        target += '%';
        target += kDigits[byte >> 4];
        target += kDigits[byte & 15];
    }
    return target;
}

}  // namespace qv
