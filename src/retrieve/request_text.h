// The texts of a request and of a redirect. Pure.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qv {

// ":" and the port when it isn't 80, else empty.
std::string PortSuffix(int port);

// The header lines of a request: Host, User-Agent (unless empty) and Accept.
std::string ComposeRequestHeaders(std::string_view server, int port, std::string_view userAgent, std::string_view lineBreak);

// A doubled slash at the end loses one, and a slash behind a last part that holds a dot falls off ("/a/page.html/").
std::string NormalizeRequestPath(std::string path);

// The server without the query that stands straight behind it, and the path that the query makes ("/?x=1"); nothing when
// there is no "?" in the server.
struct ServerAndPath {
    std::string server;
    std::string path;
};
std::optional<ServerAndPath> SplitServerQuery(const std::string& server);

// A host that is a list of a name and an address, parted by "," or "%2c" in either case: where the parting stands and how
// long it is.
struct CommaHost {
    std::string left;
    std::string right;
};
std::optional<CommaHost> SplitCommaHost(const std::string& server);

// A text of digits and dots alone, an empty one too.
bool IsNumericHost(std::string_view host);

// A host that is such a list, as its part of the kind of the root's server (a name or a number), lower-cased; any other
// host as it stands.
std::string CheckDomainOrIP(const std::string& root, const std::string& host);

// Whether an address names its server by such a list, and the list's part of the root's kind equals the root's server.
bool CheckCommaDelimited(const std::string& root, const std::string& url);

// The part of an address up to and including the last "/" of its path: "http://host:81/a/".
std::string RootOfSite(std::string_view scheme, std::string_view server, int port, std::string_view path);

// Where a reply sends to. `headers` are "Field: value" lines closed by CR LF.
struct RedirectBase {
    std::string scheme;
    std::string server;  // the host's name
    int port = 80;
    std::string path;  // as it was asked for
};
std::optional<std::string> ParseRedirect(const std::string& headers, const RedirectBase& base);

// The text behind "content-length: " in the headers as a number; nothing when there is none.
std::optional<long> ContentLength(const std::string& headers);

// A chunk of a body with a carriage return put before each line feed that has none, save one at its very start.
std::string NormalizeLineEnds(std::string_view chunk);

// The address with a "/" at its end when it holds just two slashes, which is a scheme and a host alone.
std::string WithRootSlash(std::string address);

}  // namespace qv
