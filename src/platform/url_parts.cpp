#include "platform/url_parts.h"

#include <charconv>

namespace qv {
namespace {

// Takes ":digits" out of an authority, at its end or in front of a "?"; the port stays as it is if there is none.
void TakePort(std::string& server, int& port) {
    std::size_t end = server.find('?');
    if (end == std::string::npos) end = server.size();
    const std::size_t bracket = server.rfind(']', end);
    const std::size_t colon = server.rfind(':', end);
    if (colon == std::string::npos || colon > end || (bracket != std::string::npos && colon < bracket)) return;
    const std::string digits = server.substr(colon + 1, end - colon - 1);
    if (digits.find_first_not_of("0123456789") != std::string::npos) return;
    int value = 0;
    const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    const bool isPort = parsed.ec == std::errc{} && value >= 1 && value <= 65535;
    if (!isPort && !digits.empty()) return;
    if (isPort) port = value;
    server.erase(colon, end - colon);
}

}  // namespace

UrlParts SplitUrl(std::string_view url) {
    UrlParts parts;
    parts.Scheme = "http";
    const auto scheme = url.find("://");
    if (scheme != std::string_view::npos) {
        parts.Scheme = std::string(url.substr(0, scheme));
        url.remove_prefix(scheme + 3);
    }
    const auto slash = url.find('/');
    parts.Server = std::string(url.substr(0, slash));
    if (slash != std::string_view::npos) parts.Path = std::string(url.substr(slash));
    const auto at = parts.Server.substr(0, parts.Server.find('?')).rfind('@');
    if (at != std::string::npos) {
        const std::string credentials = parts.Server.substr(0, at);
        const auto colon = credentials.find(':');
        parts.User = credentials.substr(0, colon);
        if (colon != std::string::npos) parts.Password = credentials.substr(colon + 1);
        parts.Server.erase(0, at + 1);
    }
    TakePort(parts.Server, parts.Port);
    return parts;
}

}  // namespace qv
