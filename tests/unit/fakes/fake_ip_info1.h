// A resolver whose answers are played by the test.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/ip_info1.h"

namespace qv {

class FakeIpInfo1 : public IPInfo1 {
   public:
    std::map<std::string, std::string> hosts;  // name -> address; others never answer
    std::vector<std::string> asked;
    std::function<void(const std::string&)> otherwise;

    void SetHostName(const std::string& name) override {
        asked.push_back(name);
        address_ = "Default";
        if (hosts.count(name) != 0) {
            address_ = hosts[name];
            OnRequestComplete(1, 0, "");
        } else if (otherwise) {
            otherwise(name);
        }
    }
    const std::string& HostAddress() const override { return address_; }
    void SetLookupAction(int action) override { lastAction = action; }
    void SetAddress(const std::string& address) { address_ = address; }
    int lastAction = -1;

   private:
    std::string address_ = "Default";
};

}  // namespace qv
