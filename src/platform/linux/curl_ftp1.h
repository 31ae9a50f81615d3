// FTP1 on libcurl.
#pragma once

#include <curl/curl.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/event_loop.h"
#include "platform/ftp1.h"
#include "platform/last_error.h"

namespace qv {

class CurlFtp1 : public FTP1 {
   public:
    CurlFtp1(EventLoop& loop, LastError& lastError);
    ~CurlFtp1() override;

    void SetAction(ActionCode action) override;

   private:
    enum class Step { None, LogOn, File, Folder };
    static std::size_t ReplyCame(char* data, std::size_t size, std::size_t count, void* self);
    static std::size_t BytesCame(char* data, std::size_t size, std::size_t count, void* self);

    void EndAll();
    void Perform(Step step);
    CURLcode Run(Step step);
    void Advance();  // lets libcurl do what it can, without waiting
    void WaitForMore();
    void UnwatchAll();
    void SetTarget(Step step);
    std::string Address(Step step) const;
    void Fail(CURLcode result);
    void Stop();
    void Began(Step step);  // the transfer's first sign
    double SecondsLeft() const;  // until the server has been silent for too long

    EventLoop& loop_;
    LastError& lastError_;
    CURLM* multi_ = nullptr;       // made for each session: its connections end with it
    std::vector<int> watched_;     // the descriptors that a turn waits for
    CURL* easy_;
    Step running_ = Step::None;
    long run_ = 0;  // tells the steps from one another
    CURLcode result_ = CURLE_OK;
    bool ended_ = false;
    bool loggedOn_ = false;
    bool accepted_ = false;  // the server has said that the transfer begins
    bool began_ = false;     // and that was passed on
    bool interrupted_ = false;
    std::string address_;
    std::shared_ptr<int> alive_ = std::make_shared<int>(0);  // posted work comes to nothing once this is gone
    std::chrono::steady_clock::time_point lastSign_;
};

}  // namespace qv
