// SMTP1 on libcurl.
#pragma once

#include <curl/curl.h>

#include <chrono>
#include <fstream>
#include <memory>
#include <set>
#include <string>

#include "platform/event_loop.h"
#include "platform/linux/curl_perform.h"
#include "platform/linux/mail_message.h"
#include "platform/smtp1.h"

namespace qv {

class CurlSmtp1 : public SMTP1 {
   public:
    explicit CurlSmtp1(EventLoop& loop);
    ~CurlSmtp1() override;

    ErrorText SetAction(ActionCode action) override;

   private:
    static std::size_t ReplyCame(char* data, std::size_t size, std::size_t count, void* self);
    static std::size_t MessageWanted(char* to, std::size_t size, std::size_t count, void* self);
    static int Spoken(CURL* easy, curl_infotype type, char* data, std::size_t size, void* self);
    static curl_socket_t OpenSocket(void* self, curlsocktype purpose, curl_sockaddr* address);
    static int CloseSocket(void* self, curl_socket_t socket);

    ErrorText SendMessage();
    ErrorText SetUp(const MailServerPlace& place, curl_slist*& recipients);
    void SetLogIn();
    ErrorText ErrorOf(CURLcode result) const;
    double SecondsLeft() const;

    EventLoop& loop_;
    CURL* easy_;
    std::unique_ptr<CurlPerform> transfer_;
    std::string headers_;      // of the message, with the text in front of the file's contents
    std::size_t headersSent_ = 0;
    std::ifstream body_;
    bool sending_ = false;
    bool interrupted_ = false;
    bool bodyFailed_ = false;
    std::string refusal_;  // the server's last reply, when it was a refusal
    std::string libraryText_;
    std::set<curl_socket_t> sockets_;  // the open ones
    std::chrono::steady_clock::time_point lastSign_;
};

}  // namespace qv
