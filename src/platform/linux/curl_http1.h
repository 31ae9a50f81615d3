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

// Its event handlers may write Action 0; they don't turn the loop.
class CurlHttp1 : public HTTP1 {
   public:
    CurlHttp1(EventLoop& loop, LastError& lastError, std::int64_t mostBodyBytes = bounds::kBodyBytes);
    ~CurlHttp1() override;

   protected:
    void PerformAction(ActionCode action) override;

   private:
    struct Engine;    // libcurl's handles
    struct Exchange;  // the state of the one exchange
    friend struct Engine;

    void Perform(bool head);
    void Finish(const Exchange& exchange);
    void Fail(int number, const std::string& text);

    EventLoop& loop_;
    LastError& lastError_;
    std::int64_t mostBodyBytes_;
    std::unique_ptr<Engine> engine_;
    Exchange* exchange_ = nullptr;  // the running one
};

}  // namespace qv
