// SMTP1 on libcurl. The library waits for some of a mail server's replies without giving the loop its turns, so a send runs in a
// thread of its own, which lives for that send.
#pragma once

#include <curl/curl.h>

#include <atomic>
#include <chrono>
#include <fstream>
#include <string>

#include "platform/event_loop.h"
#include "platform/linux/mail_message.h"
#include "platform/smtp1.h"

namespace qv {

class CurlSmtp1 : public SMTP1 {
   public:
    explicit CurlSmtp1(EventLoop& loop);
    ~CurlSmtp1() override;

    ErrorText SetAction(ActionCode action) override;

   private:
    // Called from inside libcurl, in the thread of the send.
    static std::size_t ReplyCame(char* data, std::size_t size, std::size_t count, void* self);
    static std::size_t MessageWanted(char* to, std::size_t size, std::size_t count, void* self);
    static int Spoken(CURL* easy, curl_infotype type, char* data, std::size_t size, void* self);
    static int GoOn(void* self, curl_off_t, curl_off_t, curl_off_t, curl_off_t);

    ErrorText SendMessage();
    ErrorText Prepare(const MailServerPlace& place);
    void SetServer(const MailServerPlace& place);
    void SetLogIn();
    void SetCallbacks();
    CURLcode Perform();  // in the thread, while this one turns the loop
    ErrorText ErrorOf(CURLcode result) const;

    EventLoop& loop_;
    CURL* easy_;
    bool sending_ = false;
    std::atomic<bool> interrupted_ = false;

    // The thread's own while it runs.
    curl_slist* recipients_ = nullptr;
    std::string message_;  // its headers, with the text in front of the file's contents
    std::size_t messageSent_ = 0;
    std::ifstream body_;
    std::string refusal_;        // the server's last reply, when it was a refusal
    bool bodyFailed_ = false;
    bool timedOut_ = false;
    bool leaving_ = false;       // the leave was taken: what the server says to it doesn't matter
    std::chrono::steady_clock::time_point lastSign_;
};

}  // namespace qv
