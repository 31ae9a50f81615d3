#include "platform/linux/curl_engine.h"

#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>

#include "text/basic_text.h"

namespace qv {
namespace {

constexpr long kConnectTimeoutMilliseconds = 600000;  // beyond the system's own

constexpr int kEstablished = 1;  // the system's number of this state of a connection

std::uint64_t ReceivedBytes(int socket) {
    tcp_info info{};
    socklen_t size = sizeof info;
    if (getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &size) != 0 || info.tcpi_bytes_received == 0) return 0;
    const bool otherSideHasEnded = info.tcpi_state != kEstablished;  // its end counts as a byte
    return info.tcpi_bytes_received - (otherSideHasEnded ? 1 : 0);
}

// A header line as libcurl wants it: one without a value is marked by a semicolon. Empty for a line that isn't a header.
std::string ListEntry(const std::string& line) {
    const auto colon = line.find(':');
    if (colon == std::string::npos || colon == 0) return "";
    return line.find_first_not_of(' ', colon + 1) == std::string::npos ? line.substr(0, colon) + ";" : line;
}

}  // namespace

CurlEngine::CurlEngine(EventLoop& loop) : loop_(loop), multi_(curl_multi_init()), easy_(curl_easy_init()) { SetFixedOptions(); }

CurlEngine::~CurlEngine() {
    Drop();
    curl_easy_cleanup(easy_);
    curl_multi_cleanup(multi_);
    curl_slist_free_all(headers_);
    StopTimer();
}

void CurlEngine::SetFixedOptions() {
    curl_multi_setopt(multi_, CURLMOPT_SOCKETFUNCTION, &CurlEngine::SocketChanged);
    curl_multi_setopt(multi_, CURLMOPT_SOCKETDATA, this);
    curl_multi_setopt(multi_, CURLMOPT_TIMERFUNCTION, &CurlEngine::TimerChanged);
    curl_multi_setopt(multi_, CURLMOPT_TIMERDATA, this);
    curl_easy_setopt(easy_, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy_, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    curl_easy_setopt(easy_, CURLOPT_PROXY, "");
    curl_easy_setopt(easy_, CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    curl_easy_setopt(easy_, CURLOPT_FOLLOWLOCATION, 0L);
    curl_easy_setopt(easy_, CURLOPT_PATH_AS_IS, 1L);
    curl_easy_setopt(easy_, CURLOPT_PROTOCOLS_STR, "http");
    curl_easy_setopt(easy_, CURLOPT_HTTP_CONTENT_DECODING, 0L);
    curl_easy_setopt(easy_, CURLOPT_CONNECTTIMEOUT_MS, kConnectTimeoutMilliseconds);
    curl_easy_setopt(easy_, CURLOPT_HEADERFUNCTION, &CurlEngine::HeaderCame);
    curl_easy_setopt(easy_, CURLOPT_HEADERDATA, this);
    curl_easy_setopt(easy_, CURLOPT_WRITEFUNCTION, &CurlEngine::BodyCame);
    curl_easy_setopt(easy_, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(easy_, CURLOPT_PREREQFUNCTION, &CurlEngine::Connected);
    curl_easy_setopt(easy_, CURLOPT_PREREQDATA, this);
    curl_easy_setopt(easy_, CURLOPT_CLOSESOCKETFUNCTION, &CurlEngine::CloseSocket);
    curl_easy_setopt(easy_, CURLOPT_CLOSESOCKETDATA, this);
}

void CurlEngine::Start(const Request& request, Sink& sink) {
    sink_ = &sink;
    if (request.origin != origin_) {
        origin_ = request.origin;
        curl_easy_setopt(easy_, CURLOPT_URL, origin_.c_str());
    }
    SetHeaders(request.headers);
    if (request.head)
        curl_easy_setopt(easy_, CURLOPT_NOBODY, 1L);
    else
        curl_easy_setopt(easy_, CURLOPT_HTTPGET, 1L);
    curl_easy_setopt(easy_, CURLOPT_REQUEST_TARGET, request.target.c_str());
    curl_multi_add_handle(multi_, easy_);
    Act(CURL_SOCKET_TIMEOUT, 0);
}

void CurlEngine::Drop() {
    if (sink_ == nullptr) return;
    sink_ = nullptr;
    curl_multi_remove_handle(multi_, easy_);
}

void CurlEngine::SetHeaders(const std::vector<std::string>& lines) {
    if (lines == headerLines_ && headers_ != nullptr) return;
    curl_slist_free_all(headers_);
    headers_ = nullptr;
    headerLines_ = lines;
    for (const auto& line : lines) {
        const std::string entry = ListEntry(line);
        if (!entry.empty()) headers_ = curl_slist_append(headers_, entry.c_str());
    }
    const auto isAccept = [](const std::string& line) { return StartsWithLower(line, "accept:"); };
    // A name with nothing behind it keeps libcurl from sending a line of its own.
    if (std::none_of(lines.begin(), lines.end(), isAccept)) headers_ = curl_slist_append(headers_, "Accept:");
    curl_easy_setopt(easy_, CURLOPT_HTTPHEADER, headers_);
}

void CurlEngine::StopTimer() {
    if (timer_ != 0) loop_.StopTimer(timer_);
    timer_ = 0;
}

void CurlEngine::Act(curl_socket_t socket, int events) {
    int running = 0;
    curl_multi_socket_action(multi_, socket, events, &running);
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(multi_, &left)) {
        if (message->msg != CURLMSG_DONE || sink_ == nullptr) continue;
        long systemError = 0;
        curl_easy_getinfo(easy_, CURLINFO_OS_ERRNO, &systemError);
        sink_->Ended(message->data.result, static_cast<int>(systemError));
    }
    if (sink_ != nullptr) sink_->Stepped();
}

int CurlEngine::SocketChanged(CURL*, curl_socket_t socket, int what, void* self, void*) {
    auto* engine = static_cast<CurlEngine*>(self);
    if (what == CURL_POLL_REMOVE) {
        engine->loop_.Unwatch(socket);
        return 0;
    }
    engine->loop_.Watch(socket, (what & CURL_POLL_IN) != 0, (what & CURL_POLL_OUT) != 0,
                        [engine, socket](bool readable, bool writable) {
                            engine->Act(socket, (readable ? CURL_CSELECT_IN : 0) | (writable ? CURL_CSELECT_OUT : 0));
                        });
    return 0;
}

int CurlEngine::TimerChanged(CURLM*, long milliseconds, void* self) {
    auto* engine = static_cast<CurlEngine*>(self);
    engine->StopTimer();
    if (milliseconds < 0) return 0;
    engine->timer_ = engine->loop_.StartTimer(std::chrono::milliseconds{milliseconds}, false, [engine] {
        engine->timer_ = 0;
        engine->Act(CURL_SOCKET_TIMEOUT, 0);
    });
    return 0;
}

int CurlEngine::CloseSocket(void* self, curl_socket_t socket) {
    auto* engine = static_cast<CurlEngine*>(self);
    engine->receivedBeforeClose_ = ReceivedBytes(socket);
    engine->loop_.Unwatch(socket);
    return close(socket);
}

int CurlEngine::Connected(void* self, char*, char*, int, int) {
    if (Sink* sink = static_cast<CurlEngine*>(self)->sink_) sink->Connected();
    return CURL_PREREQFUNC_OK;
}

std::size_t CurlEngine::HeaderCame(char* data, std::size_t size, std::size_t count, void* self) {
    Sink* sink = static_cast<CurlEngine*>(self)->sink_;
    const std::string_view line(data, size * count);
    return sink != nullptr && sink->HeadLine(line) ? line.size() : 0;
}

std::size_t CurlEngine::BodyCame(char* data, std::size_t size, std::size_t count, void* self) {
    Sink* sink = static_cast<CurlEngine*>(self)->sink_;
    const std::string_view chunk(data, size * count);
    return sink != nullptr && sink->Body(chunk) ? chunk.size() : 0;
}

}  // namespace qv
