// The look-up of a host's address.
#pragma once

#include <functional>
#include <string>

namespace qv {

class IPInfo1 {
   public:
    virtual ~IPInfo1() = default;

    // Starts a look-up and returns. When it is over, at a turn of the event loop: an address comes with
    // OnRequestComplete(id, 0, "") and stands in HostAddress (IPv4 before IPv6, IPv6 in brackets). A name that doesn't exist
    // fails with 25003 and "Host not found" in LastError; there is no event and HostAddress is empty. Anything else, and a
    // name that can't be one, comes with OnRequestComplete, a status other than 0 and HostAddress "0.0.0.0".
    virtual void SetHostName(const std::string& name) = 0;
    virtual const std::string& HostAddress() const = 0;  // "Default" before the first look-up and while one runs
    virtual void SetLookupAction(int action) = 0;        // 0 ends a look-up: nothing comes of it any more
    bool NetworkReady = false;

    std::function<void(int requestId, int status, const std::string& text)> OnRequestComplete;
};

// Whether a text can't be a host's name: empty, an empty label (one dot at the end is allowed), a label of more than 63
// bytes, more than 253 bytes in all, a blank or a control character.
bool IsImpossibleHostName(const std::string& name);

}  // namespace qv
