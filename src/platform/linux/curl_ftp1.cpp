#include "platform/linux/curl_ftp1.h"

#include <sys/select.h>

#include <algorithm>
#include <utility>

#include "text/basic_text.h"

namespace qv {
namespace {

constexpr double kGrace = 15;      // seconds beyond the time-out
constexpr double kBlindWait = 0.1;  // seconds, while libcurl waits for something that it doesn't show

bool IsCode(std::string_view text) {
    return text.size() == 3 && text.substr(1).find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos &&
           text != "%00";
}

// A path as it can stand in an address: what has a meaning there, and what isn't printable, as its code. Codes stay.
std::string EncodePath(std::string_view path) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string encoded;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const char c = path[i];
        const auto byte = static_cast<unsigned char>(c);
        if (byte > ' ' && byte < 127 && c != '?' && c != '#' && c != ';' && (c != '%' || IsCode(path.substr(i, 3)))) {
            encoded += c;
        } else if (byte != 0 && c != '\r' && c != '\n') {
            encoded += '%';
            encoded += kDigits[byte >> 4];
            encoded += kDigits[byte & 15];
        }
    }
    return encoded;
}

}  // namespace

CurlFtp1::CurlFtp1(EventLoop& loop, LastError& lastError)
    : loop_(loop), lastError_(lastError), easy_(curl_easy_init()) {
    curl_easy_setopt(easy_, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy_, CURLOPT_PROTOCOLS_STR, "ftp");
    curl_easy_setopt(easy_, CURLOPT_PROXY, "");
    curl_easy_setopt(easy_, CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    curl_easy_setopt(easy_, CURLOPT_HEADERFUNCTION, &CurlFtp1::ReplyCame);
    curl_easy_setopt(easy_, CURLOPT_HEADERDATA, this);
    curl_easy_setopt(easy_, CURLOPT_WRITEFUNCTION, &CurlFtp1::BytesCame);
    curl_easy_setopt(easy_, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(easy_, CURLOPT_SERVER_RESPONSE_TIMEOUT, 86400L);  // the time is watched here
}

CurlFtp1::~CurlFtp1() {
    EndAll();
    curl_easy_cleanup(easy_);
}

// Closes the session's connections.
void CurlFtp1::EndAll() {
    loggedOn_ = false;
    if (multi_ == nullptr) return;
    UnwatchAll();
    if (running_ != Step::None) curl_multi_remove_handle(multi_, easy_);
    curl_multi_cleanup(multi_);
    multi_ = nullptr;
}

void CurlFtp1::SetAction(ActionCode action) {
    switch (action) {
        case LogOn: Perform(Step::LogOn); break;
        case AskForFile: Perform(EndsWith(RemoteFile, "/") ? Step::Folder : Step::File); break;
        case EndSession: Stop(); break;
        case Idle:
            if (running_ == Step::None)
                EndAll();
            else
                Stop();
            break;
    }
}

void CurlFtp1::Stop() {
    loggedOn_ = false;
    if (running_ != Step::None && !began_) interrupted_ = true;
    ended_ = ended_ || running_ != Step::None;
    loop_.Post([] {});  // whoever waits for the step looks again
}

void CurlFtp1::Fail(CURLcode result) {
    loggedOn_ = false;
    if (lastError_.LastErrorNumber != 0) return;
    if (interrupted_)
        lastError_.Set(kErrorInterrupted, "interrupted");
    else if (result == CURLE_OPERATION_TIMEDOUT)
        lastError_.Set(kErrorTimedOut, "Operation timed out");
    else
        lastError_.Set(kErrorOther, curl_easy_strerror(result));
}

void CurlFtp1::Perform(Step step) {
    if (running_ != Step::None) return;
    if (step != Step::LogOn && !loggedOn_) {
        Fail(CURLE_COULDNT_CONNECT);
        return;
    }
    interrupted_ = false;
    CURLcode result = Run(step);
    const bool refused = result == CURLE_REMOTE_FILE_NOT_FOUND || result == CURLE_FTP_COULDNT_RETR_FILE;
    if (step == Step::File && refused && !interrupted_ && loggedOn_) {
        step = Step::Folder;
        result = Run(step);
    }
    if (began_ && step != Step::LogOn) return;
    const bool over = result == CURLE_OK || accepted_;  // also when the connection broke off behind the word
    if (!over || interrupted_) return Fail(result);
    if (step == Step::LogOn)
        loggedOn_ = true;
    else
        Began(step);  // it was over before a turn could tell
}

CURLcode CurlFtp1::Run(Step step) {
    if (multi_ == nullptr) multi_ = curl_multi_init();
    SetTarget(step);
    running_ = step;
    ++run_;
    ended_ = began_ = accepted_ = false;
    result_ = CURLE_OK;
    lastSign_ = std::chrono::steady_clock::now();
    curl_multi_add_handle(multi_, easy_);
    for (Advance(); !ended_; Advance()) {
        WaitForMore();
        if (!ended_ && SecondsLeft() <= 0) {
            result_ = CURLE_OPERATION_TIMEDOUT;
            ended_ = true;
        }
    }
    UnwatchAll();
    curl_multi_remove_handle(multi_, easy_);
    running_ = Step::None;
    return result_;
}

void CurlFtp1::Advance() {
    if (ended_) return;
    int running = 0;
    curl_multi_perform(multi_, &running);
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(multi_, &left)) {
        if (message->msg != CURLMSG_DONE) continue;
        result_ = message->data.result;
        ended_ = true;
    }
}

// A descriptor that is ready is let go of at once: should a handler of this turn wait for something else, it isn't told again and
// again.
void CurlFtp1::WaitForMore() {
    fd_set read, write, exception;
    FD_ZERO(&read);
    FD_ZERO(&write);
    FD_ZERO(&exception);
    int last = -1;
    curl_multi_fdset(multi_, &read, &write, &exception, &last);
    for (int descriptor = 0; descriptor <= last; ++descriptor) {
        const bool reads = FD_ISSET(descriptor, &read);
        const bool writes = FD_ISSET(descriptor, &write);
        if (!reads && !writes) continue;
        watched_.push_back(descriptor);
        loop_.Watch(descriptor, reads, writes, [this, descriptor](bool, bool) { loop_.Unwatch(descriptor); });
    }
    long milliseconds = -1;
    curl_multi_timeout(multi_, &milliseconds);
    double seconds = milliseconds < 0 ? SecondsLeft() : static_cast<double>(milliseconds) / 1000;
    if (last < 0) seconds = std::min(seconds, kBlindWait);
    loop_.WaitFor(std::min(seconds, SecondsLeft()));
    UnwatchAll();
}

void CurlFtp1::UnwatchAll() {
    for (const int descriptor : watched_) loop_.Unwatch(descriptor);
    watched_.clear();
}

double CurlFtp1::SecondsLeft() const {
    const std::chrono::duration<double> silent = std::chrono::steady_clock::now() - lastSign_;
    return Timeout + kGrace - silent.count();
}

// The path goes from where the log-on leads to. A folder is entered, so that one that isn't there is told from an empty one.
std::string CurlFtp1::Address(Step step) const {
    const std::string server = "ftp://" + RemoteHost;
    if (step == Step::LogOn) return server + "/";
    std::string path = EncodePath(RemoteFile);
    if (path.empty() || path.front() != '/') path.insert(0, "/");
    if (step == Step::Folder && path.back() != '/') path += '/';
    return server + path;
}

void CurlFtp1::SetTarget(Step step) {
    address_ = Address(step);
    curl_easy_setopt(easy_, CURLOPT_URL, address_.c_str());
    curl_easy_setopt(easy_, CURLOPT_USERNAME, User.c_str());
    curl_easy_setopt(easy_, CURLOPT_PASSWORD, Password.c_str());
    curl_easy_setopt(easy_, CURLOPT_FTPPORT, Passive ? nullptr : "-");
    curl_easy_setopt(easy_, CURLOPT_FTP_FILEMETHOD,
                     static_cast<long>(step == Step::File ? CURLFTPMETHOD_NOCWD : CURLFTPMETHOD_SINGLECWD));
    curl_easy_setopt(easy_, CURLOPT_NOBODY, step == Step::LogOn ? 1L : 0L);
}

void CurlFtp1::Began(Step step) {
    if (began_) return;
    began_ = true;
    if (step == Step::Folder && OnDirList)
        OnDirList();
    else if (OnStartTransfer)
        OnStartTransfer();
}

// Called from inside libcurl: what they notice is told at the next turn.
std::size_t CurlFtp1::ReplyCame(char* data, std::size_t size, std::size_t count, void* self) {
    auto* client = static_cast<CurlFtp1*>(self);
    client->lastSign_ = std::chrono::steady_clock::now();
    const std::string_view reply(data, size * count);
    const bool transfer = client->running_ == Step::File || client->running_ == Step::Folder;
    const bool accepted = reply.substr(0, 4) == "150 " || reply.substr(0, 4) == "125 " || reply.substr(0, 4) == "226 ";
    client->accepted_ = client->accepted_ || (transfer && accepted);
    if (transfer && accepted)
        client->loop_.Post([client, run = client->run_, alive = std::weak_ptr<int>(client->alive_)] {
            if (!alive.expired() && client->run_ == run && client->running_ != Step::None) client->Began(client->running_);
        });
    return size * count;
}

std::size_t CurlFtp1::BytesCame(char*, std::size_t size, std::size_t count, void* self) {
    auto* client = static_cast<CurlFtp1*>(self);
    client->lastSign_ = std::chrono::steady_clock::now();
    return size * count;
}

}  // namespace qv
