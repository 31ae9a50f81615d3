// An HTTP client whose exchanges are played by the test.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/http1.h"
#include "platform/last_error.h"

namespace qv {

class FakeHttp1 : public HTTP1 {
   public:
    explicit FakeHttp1(LastError& lastError) : lastError_(lastError) {}

    // What happens when Get or Head is written. Without one every exchange is a 200.
    std::function<void(FakeHttp1&, ActionCode)> exchange;
    std::vector<std::string> log;  // "HEAD http://1.2.3.4/x", and "STOP", "RESET"

    void Reply(const std::string& statusLine, const std::vector<std::pair<std::string, std::string>>& headers = {},
               const std::string& body = "") {
        SetStatusLine(statusLine);
        for (const auto& [field, value] : headers) OnHeader(field, value);
        OnHeader("", "");
        const std::string text = statusLine.substr(statusLine.find(' ') + 1);
        if (text[0] != '2') lastError_.Set(std::stoi(text), text);
        if (!body.empty() && KeepBody) {
            OnStartTransfer();
            OnTransfer(static_cast<long>(body.size()), body);
        }
        OnEndTransfer();
    }
    void FailWith(int number, const std::string& text) {
        SetStatusLine(text);
        lastError_.Set(number, text);
    }

   protected:
    void PerformAction(ActionCode action) override {
        if (action == Stop || action == Reset) {
            log.emplace_back(action == Stop ? "STOP" : "RESET");
            return;
        }
        log.push_back((action == Get ? "GET " : "HEAD ") + URL());
        if (exchange)
            exchange(*this, action);
        else
            Reply("HTTP/1.1 200 OK");
    }

   private:
    LastError& lastError_;
};

}  // namespace qv
