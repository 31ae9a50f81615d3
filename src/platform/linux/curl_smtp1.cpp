#include "platform/linux/curl_smtp1.h"

#include <pthread.h>
#include <signal.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <thread>

#include "platform/files.h"
#include "platform/linux/gmime_text.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr int kImplicitTlsPort = 465;
constexpr int kBreakOff = 1;  // what a callback of libcurl gives to end the transfer

std::string Decoded(const std::string& base64) {
    gsize length = 0;
    guchar* bytes = g_base64_decode(base64.c_str(), &length);
    std::string text(reinterpret_cast<const char*>(bytes), length);
    g_free(bytes);
    return text;
}

// A server that closes its end early would else end the program.
void BlockBrokenPipes() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

}  // namespace

CurlSmtp1::CurlSmtp1(EventLoop& loop) : loop_(loop), easy_(curl_easy_init()) {}

CurlSmtp1::~CurlSmtp1() { curl_easy_cleanup(easy_); }

SMTP1::ErrorText CurlSmtp1::SetAction(ActionCode action) {
    switch (action) {
        case Reset:
            if (!sending_) Clear();
            break;
        case Send: return sending_ ? "A mail is being sent" : SendMessage();
        case Idle:
        case Disconnect: interrupted_ = sending_; break;
    }
    return "";
}

void CurlSmtp1::SetServer(const MailServerPlace& place) {
    const std::string url =
        (place.port == kImplicitTlsPort ? "smtps://" : "smtp://") + place.host + ":" + std::to_string(place.port) + "/";
    curl_easy_setopt(easy_, CURLOPT_URL, url.c_str());
    curl_easy_setopt(easy_, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
    curl_easy_setopt(easy_, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_TRY));
    curl_easy_setopt(easy_, CURLOPT_SSL_VERIFYPEER, place.loopback ? 0L : 1L);
    curl_easy_setopt(easy_, CURLOPT_SSL_VERIFYHOST, place.loopback ? 0L : 2L);
    curl_easy_setopt(easy_, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy_, CURLOPT_PROXY, "");
    curl_easy_setopt(easy_, CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    curl_easy_setopt(easy_, CURLOPT_FORBID_REUSE, 1L);
    curl_easy_setopt(easy_, CURLOPT_SERVER_RESPONSE_TIMEOUT, 86400L);  // the time is watched here
    curl_easy_setopt(easy_, CURLOPT_CONNECTTIMEOUT, 86400L);
}

// The three lines of a log-in, as the library wants them.
void CurlSmtp1::SetLogIn() {
    if (commands_.size() < 3 || Lower(commands_[0]) != "auth login") return;
    curl_easy_setopt(easy_, CURLOPT_USERNAME, Decoded(commands_[1]).c_str());
    curl_easy_setopt(easy_, CURLOPT_PASSWORD, Decoded(commands_[2]).c_str());
    curl_easy_setopt(easy_, CURLOPT_LOGIN_OPTIONS, "AUTH=LOGIN");
}

void CurlSmtp1::SetCallbacks() {
    curl_easy_setopt(easy_, CURLOPT_READFUNCTION, &CurlSmtp1::MessageWanted);
    curl_easy_setopt(easy_, CURLOPT_READDATA, this);
    curl_easy_setopt(easy_, CURLOPT_HEADERFUNCTION, &CurlSmtp1::ReplyCame);
    curl_easy_setopt(easy_, CURLOPT_HEADERDATA, this);
    curl_easy_setopt(easy_, CURLOPT_XFERINFOFUNCTION, &CurlSmtp1::GoOn);
    curl_easy_setopt(easy_, CURLOPT_XFERINFODATA, this);
    curl_easy_setopt(easy_, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(easy_, CURLOPT_DEBUGFUNCTION, &CurlSmtp1::Spoken);
    curl_easy_setopt(easy_, CURLOPT_DEBUGDATA, this);
    curl_easy_setopt(easy_, CURLOPT_VERBOSE, 1L);
}

SMTP1::ErrorText CurlSmtp1::Prepare(const MailServerPlace& place) {
    if (place.host.empty() || place.port == 0) return "Not a mail server: " + MailServer;
    errno = 0;
    body_ = std::ifstream(NativePath(MessageFile), std::ios::binary | std::ios::ate);
    if (!body_.is_open()) return NativePath(MessageFile) + ": " + std::generic_category().message(errno);
    const auto bodyLength = static_cast<curl_off_t>(body_.tellg());
    body_.seekg(0);
    message_ = ComposeMailHeaders({From, SendTo, Cc, Subject, OtherHeaders}) + MessageText;
    recipients_ = curl_slist_append(nullptr, AddressIn(SendTo).c_str());
    for (const auto& address : AddressesIn(Cc + "," + BCc)) recipients_ = curl_slist_append(recipients_, address.c_str());
    SetServer(place);
    SetLogIn();
    SetCallbacks();
    curl_easy_setopt(easy_, CURLOPT_MAIL_FROM, ("<" + AddressIn(From) + ">").c_str());
    curl_easy_setopt(easy_, CURLOPT_MAIL_RCPT, recipients_);
    curl_easy_setopt(easy_, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(easy_, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(message_.size()) + bodyLength);
    return "";
}

CURLcode CurlSmtp1::Perform() {
    CURLcode result = CURLE_OK;
    std::atomic<bool> ended = false;
    lastSign_ = std::chrono::steady_clock::now();
    std::thread thread([&] {
        BlockBrokenPipes();
        result = curl_easy_perform(easy_);
        ended = true;
        loop_.Post([] {});
    });
    while (!ended) loop_.WaitFor(kWaitForever);
    thread.join();
    return result;
}

SMTP1::ErrorText CurlSmtp1::SendMessage() {
    sending_ = true;
    interrupted_ = bodyFailed_ = timedOut_ = leaving_ = false;
    messageSent_ = 0;
    refusal_.clear();
    ErrorText error = Prepare(ParseMailServer(MailServer));
    if (error.empty()) {
        std::array<char, CURL_ERROR_SIZE> text{};
        curl_easy_setopt(easy_, CURLOPT_ERRORBUFFER, text.data());
        const CURLcode result = Perform();
        error = ErrorOf(result);
        if (error.empty() && result != CURLE_OK) error = text[0] != '\0' ? text.data() : curl_easy_strerror(result);
        if (!error.empty() && !refusal_.empty()) error += " (" + refusal_ + ")";
    }
    curl_easy_reset(easy_);
    curl_slist_free_all(recipients_);
    recipients_ = nullptr;
    body_.close();
    sending_ = false;
    return error;
}

// In our own words where libcurl's would tell less.
SMTP1::ErrorText CurlSmtp1::ErrorOf(CURLcode result) const {
    if (result == CURLE_OK) return "";
    if (interrupted_) return "interrupted";
    if (timedOut_) return "The mail server doesn't answer";
    if (bodyFailed_) return NativePath(MessageFile) + ": " + std::generic_category().message(EIO);
    return "";
}

int CurlSmtp1::GoOn(void* self, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    auto* client = static_cast<CurlSmtp1*>(self);
    if (client->leaving_ || client->interrupted_) return kBreakOff;
    const std::chrono::duration<double> silent = std::chrono::steady_clock::now() - client->lastSign_;
    if (silent.count() < client->Timeout) return 0;
    client->timedOut_ = true;
    return kBreakOff;
}

std::size_t CurlSmtp1::ReplyCame(char* data, std::size_t size, std::size_t count, void* self) {
    auto* client = static_cast<CurlSmtp1*>(self);
    client->lastSign_ = std::chrono::steady_clock::now();
    if (client->leaving_) return size * count;
    std::string line(data, size * count);
    std::replace_if(line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    const bool refused = !line.empty() && (line[0] == '4' || line[0] == '5');
    client->refusal_ = refused ? std::string(Trim(line)) : "";
    return size * count;
}

std::size_t CurlSmtp1::MessageWanted(char* to, std::size_t size, std::size_t count, void* self) {
    auto* client = static_cast<CurlSmtp1*>(self);
    client->lastSign_ = std::chrono::steady_clock::now();
    const std::size_t room = size * count;
    const std::size_t copied = client->message_.copy(to, room, client->messageSent_);
    client->messageSent_ += copied;
    if (copied > 0) return copied;
    client->body_.read(to, static_cast<std::streamsize>(room));
    client->bodyFailed_ = client->body_.bad();
    return client->bodyFailed_ ? CURL_READFUNC_ABORT : static_cast<std::size_t>(client->body_.gcount());
}

// The leave is taken when all that matters is over.
int CurlSmtp1::Spoken(CURL*, curl_infotype type, char* data, std::size_t size, void* self) {
    if (type == CURLINFO_HEADER_OUT && std::string_view(data, size) == "QUIT\r\n") static_cast<CurlSmtp1*>(self)->leaving_ = true;
    return 0;
}

}  // namespace qv
