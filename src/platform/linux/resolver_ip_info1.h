// The look-up of a host's address by the system's resolver, on one worker thread.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/event_loop.h"
#include "platform/ip_info1.h"
#include "platform/last_error.h"

namespace qv {

// What a resolver says of a name. An error of 0 is an address; others are the system's look-up errors.
struct ResolverAnswer {
    int error = 0;
    std::string address;
};
using Resolver = std::function<ResolverAnswer(const std::string& name)>;

// Asks the system: IPv4 before IPv6, IPv6 in brackets.
ResolverAnswer AskSystemResolver(const std::string& name);

class ResolverIpInfo1 : public IPInfo1 {
   public:
    ResolverIpInfo1(EventLoop& loop, LastError& lastError, Resolver resolver = &AskSystemResolver);
    ~ResolverIpInfo1() override;
    void SetHostName(const std::string& name) override;
    const std::string& HostAddress() const override { return hostAddress_; }
    void SetLookupAction(int action) override;

   private:
    struct Worker;
    void Take(int request, const ResolverAnswer& answer);
    void Complete(int status, const std::string& text);

    EventLoop& loop_;
    LastError& lastError_;
    Resolver resolver_;
    std::shared_ptr<Worker> worker_;
    std::shared_ptr<ResolverIpInfo1*> self_;  // posted answers come to nothing once this is gone
    std::string hostAddress_ = "Default";
    int request_ = 0;  // the number of the look-up that runs, 0 for none
    int lastRequest_ = 0;
};

}  // namespace qv
