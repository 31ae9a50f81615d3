// The parts of an address, as the HTTP client splits them. Nothing is decoded, turned or checked.
#pragma once

#include <string>
#include <string_view>

namespace qv {

struct UrlParts {
    std::string Scheme;  // "http" when the address names none
    std::string User;    // what stands before an "@" in front of the host, split at its first ":"; percent codes stay
    std::string Password;
    std::string Server;  // the host, and whatever follows it before the first "/", save the port ("host?x=1")
    int Port = 80;       // 80 when the address names none; one that can't be a port stays in the server
    std::string Path;    // from the first "/" behind the host to the end, query and fragment included; may be empty
    bool operator==(const UrlParts&) const = default;
};

UrlParts SplitUrl(std::string_view url);

}  // namespace qv
