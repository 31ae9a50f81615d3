// An FTP client that does what a test says, and tells what it was asked.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/ftp1.h"
#include "platform/last_error.h"

namespace qv {

class FakeFtp1 : public FTP1 {
   public:
    explicit FakeFtp1(LastError& lastError) : lastError_(lastError) {}
    void SetAction(ActionCode action) override {
        static constexpr const char* kNames[] = {"idle", "end", "", "ask", "", "", "", "", "log on"};
        log.push_back(std::string(kNames[action]) +
                      (action == LogOn ? " " + RemoteHost + " " + User + ":" + Password : action == AskForFile ? " " + RemoteFile : ""));
        if (action == AskForFile && exchange) exchange(*this);
    }
    void Fail(int number, const std::string& text) { lastError_.Set(number, text); }

    std::function<void(FakeFtp1&)> exchange;  // what asking for a file does
    std::vector<std::string> log;

   private:
    LastError& lastError_;
};

}  // namespace qv
