// The headers and the envelope of a message, from the values of a mail client. No character of a value becomes a header line or a
// recipient of its own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qv {

// The one address in a text such as "Name <a@b>", "<a@b>" or "a@b": it ends at a line break, and has no angle brackets.
std::string AddressIn(std::string_view text);
// The addresses of a list parted by commas; empty ones are left out.
std::vector<std::string> AddressesIn(std::string_view list);

struct MailValues {
    std::string from;  // "Name <address>"
    std::string to;
    std::string cc;
    std::string subject;
    std::string otherHeaders;  // whole lines; go in as they are
};

// The header block, up to and including the empty line behind it: sender, recipients, subject, date and a message id of its own.
std::string ComposeMailHeaders(const MailValues& values);

// Where a mail server is.
struct MailServerPlace {
    std::string host;     // an IPv6 address in brackets
    int port = 25;        // 0: the text names a port that can't be one
    bool loopback = false;  // this machine
};
MailServerPlace ParseMailServer(std::string_view text);

}  // namespace qv
