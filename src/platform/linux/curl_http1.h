// The HTTP client on libcurl's multi interface, inside the event loop.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/bounds.h"
#include "platform/event_loop.h"
#include "platform/http1.h"
#include "platform/last_error.h"

namespace qv {

class CurlEngine;

// Sends the request line, OtherHeaders, and an Authorization line when User isn't empty; nothing else, save a Host line when
// OtherHeaders has none. With a proxy it talks to the proxy as to a server, with the whole address in the request line.
// Event handlers run outside of libcurl and one behind the other: they may write Action 0 and may turn the loop; events that
// come meanwhile follow when the handler has returned. Once an exchange was stopped, no more of its events come.
class CurlHttp1 : public HTTP1 {
   public:
    // A body above `mostBodyBytes` is a failure, as is a reply head above its bound.
    CurlHttp1(EventLoop& loop, LastError& lastError, std::int64_t mostBodyBytes = bounds::kBodyBytes);
    ~CurlHttp1() override;

   protected:
    void PerformAction(ActionCode action) override;

   private:
    class Exchange;  // the state of the one exchange

    void Perform(bool head);
    void Finish(const Exchange& exchange);
    void FinishWithReply(const Exchange& exchange);
    void Fail(int number, const std::string& text);

    EventLoop& loop_;
    LastError& lastError_;
    std::int64_t mostBodyBytes_;
    std::unique_ptr<CurlEngine> engine_;
    Exchange* exchange_ = nullptr;  // the running one
};

}  // namespace qv
