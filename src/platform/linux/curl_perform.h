// One transfer after the other of one libcurl handle, each to its end inside the turns of the event loop.
#pragma once

#include <curl/curl.h>

#include <functional>
#include <vector>

#include "platform/event_loop.h"

namespace qv {

class CurlPerform {
   public:
    CurlPerform(EventLoop& loop, CURL* easy) : loop_(loop), easy_(easy) {}
    ~CurlPerform() { CloseConnections(); }
    CurlPerform(const CurlPerform&) = delete;
    CurlPerform& operator=(const CurlPerform&) = delete;

    // Runs what the handle is set up for. Events are handled meanwhile. Ends with CURLE_OPERATION_TIMEDOUT when `secondsLeft` gives
    // no more, and with CURLE_OK when it was told to end.
    CURLcode Run(const std::function<double()>& secondsLeft);
    bool Running() const { return running_; }
    void End();               // lets a Run that is going on return
    void CloseConnections();  // those that a transfer has left open; also ends the one that runs

   private:
    void Advance();  // lets libcurl do what it can, without waiting
    void WaitForMore(double secondsLeft);
    void UnwatchAll();

    EventLoop& loop_;
    CURL* easy_;
    CURLM* multi_ = nullptr;    // made when it is needed: the connections end with it
    std::vector<int> watched_;  // the descriptors that a turn waits for
    CURLcode result_ = CURLE_OK;
    bool running_ = false;
    bool ended_ = false;
};

}  // namespace qv
