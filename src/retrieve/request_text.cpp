#include "retrieve/request_text.h"

#include <algorithm>
#include <cmath>

#include "extract/url_text.h"
#include "platform/bounds.h"
#include "platform/http1.h"
#include "text/basic_text.h"
#include "text/characters.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr std::string_view kLocation = "location: ";
constexpr std::string_view kContentLength = "content-length: ";

// The start of the value behind "location: ", where that isn't the end of a longer name with a "-" before it.
std::optional<std::size_t> FindLocation(const std::string& lowerHeaders) {
    auto at = lowerHeaders.find(kLocation);
    while (at != std::string::npos && at > 0 && lowerHeaders[at - 1] == '-') at = lowerHeaders.find(kLocation, at + 1);
    if (at == std::string::npos) return std::nullopt;
    return at + kLocation.size();
}

// What a relative target means below a base path; both come back changed. A target that isn't rooted gives way to the
// base's own last name less its last character, unless the base ends in a slash.
void JoinRelative(std::string& base, std::string& target) {
    if (StartsWith(target, "/")) {
        base = "/";
        target.erase(0, 1);
        return;
    }
    if (!EndsWith(base, "/") && base.find_first_of(".?=&") == std::string::npos) {
        base += "/";
        return;
    }
    const auto slash = base.rfind('/');
    if (slash == std::string::npos) return;
    const std::size_t start = slash + 1;
    if (start < base.size()) target = base.substr(start, base.size() - 1 - start);
    base.resize(start);
}

std::string Bounded(std::string address) {
    CutTo(address, bounds::kAddressBytes);
    return address;
}

}  // namespace

std::string PortSuffix(int port) { return port == 80 ? "" : ":" + std::to_string(port); }

std::string ComposeRequestHeaders(std::string_view server, int port, std::string_view userAgent, std::string_view lineBreak) {
    std::string text = "Host: ";
    text.append(EncodeControls(server)).append(PortSuffix(port)).append(lineBreak);
    if (!userAgent.empty()) text.append("User-Agent: ").append(EncodeControls(userAgent)).append(lineBreak);
    return text.append("Accept: */*").append(lineBreak);
}

std::string NormalizeRequestPath(std::string path) {
    if (EndsWith(path, "//")) path.pop_back();
    if (!EndsWith(path, "/") || path.size() < 2) return path;
    const auto stop = path.find_last_of("/.", path.size() - 2);
    if (stop != std::string::npos && path[stop] == '.') path.pop_back();
    return path;
}

std::optional<ServerAndPath> SplitServerQuery(const std::string& server) {
    const auto query = server.find('?');
    if (query == std::string::npos) return std::nullopt;
    return ServerAndPath{server.substr(0, query), "/" + server.substr(query)};
}

std::optional<CommaHost> SplitCommaHost(const std::string& server) {
    auto at = server.find(',');
    std::size_t length = 1;
    if (at == std::string::npos) {
        at = Lower(server).find("%2c");
        length = 3;
    }
    if (at == std::string::npos) return std::nullopt;
    return CommaHost{server.substr(0, at), server.substr(at + length)};
}

bool IsNumericHost(std::string_view host) { return host.find_first_not_of("0123456789.") == std::string_view::npos; }

std::string CheckDomainOrIP(const std::string& root, const std::string& host) {
    const auto pair = SplitCommaHost(Lower(host));
    if (!pair) return host;
    const bool rootIsNumeric = IsNumericHost(SplitUrl(root).Server);
    return IsNumericHost(pair->left) == rootIsNumeric ? pair->left : std::string(Trim(pair->right));
}

bool CheckCommaDelimited(const std::string& root, const std::string& url) {
    const std::string server = SplitUrl(url).Server;
    return SplitCommaHost(Lower(server)) && CheckDomainOrIP(root, server) == SplitUrl(root).Server;
}

std::string RootOfSite(std::string_view scheme, std::string_view server, int port, std::string_view path) {
    const auto slash = path.rfind('/');
    return std::string(scheme) + "://" + std::string(server) + PortSuffix(port) +
           (slash == std::string_view::npos ? "/" : std::string(path.substr(0, slash + 1)));
}

std::optional<std::string> ParseRedirect(const std::string& headers, const RedirectBase& from) {
    const auto start = FindLocation(Lower(headers));
    if (!start) return std::nullopt;
    const auto end = headers.find('\r', *start);
    std::string target(Trim(std::string_view(headers).substr(*start, end == std::string::npos ? end : end - *start)));
    if (StartsWithLower(target, "http")) return Bounded(std::move(target));
    std::string base = from.path;
    JoinRelative(base, target);
    PercentEncode(target);
    return Bounded(from.scheme + "://" + from.server + PortSuffix(from.port) + base + target);
}

std::optional<long> ContentLength(const std::string& headers) {
    const std::string lower = Lower(headers);
    const auto at = lower.find(kContentLength);
    if (at == std::string::npos) return std::nullopt;
    const auto start = at + kContentLength.size();
    const auto end = lower.find('\r', start);
    const double value = LeadingNumber(std::string_view(lower).substr(start, end == std::string::npos ? end : end - start));
    return static_cast<long>(std::trunc(std::clamp(value, -2147483648.0, 2147483647.0)));
}

std::string NormalizeLineEnds(std::string_view chunk) {
    std::string text;
    text.reserve(chunk.size() + chunk.size() / 32);
    std::size_t from = 0;
    for (auto at = chunk.find('\n'); at != std::string_view::npos; at = chunk.find('\n', at + 1)) {
        if (at == 0 || chunk[at - 1] == '\r') continue;
        text.append(chunk.substr(from, at - from)).append("\r");
        from = at;
    }
    return text.append(chunk.substr(from));
}

std::string WithRootSlash(std::string address) {
    if (std::count(address.begin(), address.end(), '/') == 2) address += "/";
    return address;
}

}  // namespace qv
