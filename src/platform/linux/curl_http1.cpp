#include "platform/linux/curl_http1.h"

#include <curl/curl.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <string_view>

#include "text/basic_text.h"

namespace qv {
namespace {

constexpr long kConnectTimeoutMilliseconds = 600000;  // beyond the system's own
constexpr std::chrono::milliseconds kShortBodyGrace{200};
constexpr std::int64_t kShortBodyBytes = 16384;

std::string_view TrimSpace(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// Whether a host can stand in a URL as it is.
bool IsPlainHost(std::string_view host) {
    if (host.empty()) return false;
    for (const char c : host) {
        const auto byte = static_cast<unsigned char>(c);
        const bool letter = (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
        if (!letter && byte < 0x80 && std::string_view("-._~[]:").find(c) == std::string_view::npos) return false;
    }
    return true;
}

struct Failure {
    int number;
    const char* text;
};

Failure FailureOf(CURLcode code, long systemError) {
    switch (code) {
        case CURLE_COULDNT_CONNECT:
            if (systemError == ECONNREFUSED) return {kErrorOther, "Connection refused"};
            if (systemError == ETIMEDOUT) return {kErrorTimedOut, "Operation timed out"};
            return {kErrorOther, "Connection failed"};
        case CURLE_OPERATION_TIMEDOUT: return {kErrorTimedOut, "Operation timed out"};
        case CURLE_COULDNT_RESOLVE_HOST: return {kErrorOther, "Host not found"};
        case CURLE_GOT_NOTHING: return {kErrorOther, "Server sent no data"};
        case CURLE_RECV_ERROR:
        case CURLE_SEND_ERROR: return {kErrorOther, "Connection reset"};
        case CURLE_PARTIAL_FILE: return {kErrorOther, "Transfer broken off"};
        default: return {kErrorOther, "Invalid reply"};
    }
}

}  // namespace

struct CurlHttp1::Exchange {
    bool head = false;
    bool keepBody = true;
    bool done = false;
    bool stopped = false;
    bool cut = false;  // the reply's head is all that is wanted
    bool tooLong = false;
    CURLcode result = CURLE_OK;
    std::string statusLine;
    int code = 0;
    bool headDone = false;
    bool started = false;
    std::size_t headBytes = 0;
    std::int64_t contentLength = -1;
    std::int64_t bodyBytes = 0;
    EventLoop::TimerId grace = 0;
};

struct CurlHttp1::Engine {
    explicit Engine(CurlHttp1& owner) : client(owner), multi(curl_multi_init()), easy(curl_easy_init()) {
        curl_multi_setopt(multi, CURLMOPT_SOCKETFUNCTION, &Engine::SocketChanged);
        curl_multi_setopt(multi, CURLMOPT_SOCKETDATA, this);
        curl_multi_setopt(multi, CURLMOPT_TIMERFUNCTION, &Engine::TimerChanged);
        curl_multi_setopt(multi, CURLMOPT_TIMERDATA, this);
        curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
        curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
        curl_easy_setopt(easy, CURLOPT_PROXY, "");
        curl_easy_setopt(easy, CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
        curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 0L);
        curl_easy_setopt(easy, CURLOPT_PATH_AS_IS, 1L);
        curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http");
        curl_easy_setopt(easy, CURLOPT_HTTP_CONTENT_DECODING, 0L);
        curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, kConnectTimeoutMilliseconds);
        curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &Engine::HeaderCame);
        curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
        curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &Engine::BodyCame);
        curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
        curl_easy_setopt(easy, CURLOPT_PREREQFUNCTION, &Engine::Connected);
        curl_easy_setopt(easy, CURLOPT_PREREQDATA, this);
    }
    ~Engine() {
        StopTimer();
        curl_easy_cleanup(easy);
        curl_multi_cleanup(multi);
        curl_slist_free_all(headers);
    }
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    void StopTimer() {
        if (timer != 0) client.loop_.StopTimer(timer);
        timer = 0;
    }

    void Act(curl_socket_t socket, int events) {
        int running = 0;
        curl_multi_socket_action(multi, socket, events, &running);
        int left = 0;
        while (const CURLMsg* message = curl_multi_info_read(multi, &left)) {
            if (message->msg != CURLMSG_DONE || client.exchange_ == nullptr) continue;
            client.exchange_->done = true;
            client.exchange_->result = message->data.result;
        }
    }

    static int SocketChanged(CURL*, curl_socket_t socket, int what, void* self, void*) {
        auto* engine = static_cast<Engine*>(self);
        if (what == CURL_POLL_REMOVE) {
            engine->client.loop_.Unwatch(socket);
            return 0;
        }
        engine->client.loop_.Watch(socket, (what & CURL_POLL_IN) != 0, (what & CURL_POLL_OUT) != 0,
                                   [engine, socket](bool readable, bool writable) {
                                       engine->Act(socket, (readable ? CURL_CSELECT_IN : 0) | (writable ? CURL_CSELECT_OUT : 0));
                                   });
        return 0;
    }

    static int TimerChanged(CURLM*, long milliseconds, void* self) {
        auto* engine = static_cast<Engine*>(self);
        engine->StopTimer();
        if (milliseconds < 0) return 0;
        engine->timer = engine->client.loop_.StartTimer(std::chrono::milliseconds{milliseconds}, false, [engine] {
            engine->timer = 0;
            engine->Act(CURL_SOCKET_TIMEOUT, 0);
        });
        return 0;
    }

    static int Connected(void* self, char*, char*, int, int) {
        const auto& client = static_cast<Engine*>(self)->client;
        if (client.OnConnected) client.OnConnected();
        return client.exchange_ != nullptr && client.exchange_->stopped ? CURL_PREREQFUNC_ABORT : CURL_PREREQFUNC_OK;
    }

    static std::size_t HeaderCame(char* data, std::size_t size, std::size_t count, void* self) {
        const std::string_view line(data, size * count);
        return static_cast<Engine*>(self)->TakeHeadLine(line) ? line.size() : 0;
    }

    bool TakeHeadLine(std::string_view line) {
        Exchange& x = *client.exchange_;
        x.headBytes += line.size();
        x.tooLong = x.headBytes > bounds::kReplyHeaderBytes;
        if (x.stopped || x.tooLong) return false;
        const std::string_view text = TrimSpace(line);
        if (!x.headDone && StartsWith(text, "HTTP/")) {
            x.statusLine = std::string(text);
            const auto blank = text.find(' ');
            x.code = blank == std::string_view::npos ? 0 : std::atoi(std::string(text.substr(blank + 1, 4)).c_str());
            return true;
        }
        if (x.headDone || x.code / 100 == 1) return true;  // trailers, and replies that only announce the reply
        if (text.empty()) {
            x.headDone = true;
            if (client.OnHeader) client.OnHeader("", "");
            if (!x.keepBody && !x.head) AwaitShortBody();
            return !x.stopped;
        }
        const auto colon = text.find(':');
        if (colon == std::string_view::npos) return true;
        const std::string field(TrimSpace(text.substr(0, colon)));
        const std::string value(TrimSpace(text.substr(colon + 1)));
        if (Lower(field) == "content-length") x.contentLength = std::atoll(value.c_str());
        if (client.OnHeader) client.OnHeader(field, value);
        return !x.stopped;
    }

    // The body of a probe may come to its end when it is short, so that the connection can be kept.
    void AwaitShortBody() {
        client.exchange_->grace = client.loop_.StartTimer(kShortBodyGrace, false, [this] {
            if (client.exchange_ == nullptr) return;
            client.exchange_->grace = 0;
            client.exchange_->cut = true;
        });
    }

    static std::size_t BodyCame(char* data, std::size_t size, std::size_t count, void* self) {
        const std::string_view chunk(data, size * count);
        return static_cast<Engine*>(self)->TakeBody(chunk) ? chunk.size() : 0;
    }

    bool TakeBody(std::string_view chunk) {
        Exchange& x = *client.exchange_;
        x.bodyBytes += static_cast<std::int64_t>(chunk.size());
        if (!x.started && client.OnStartTransfer) client.OnStartTransfer();
        x.started = true;
        if (!x.keepBody) {
            x.cut = x.contentLength < 0 || x.contentLength > kShortBodyBytes;
            return !x.cut && !x.stopped;
        }
        x.tooLong = x.bodyBytes > client.mostBodyBytes_;
        if (x.tooLong || x.stopped) return false;
        if (client.OnTransfer) client.OnTransfer(static_cast<long>(x.bodyBytes), std::string(chunk));
        return !x.stopped;
    }

    void SetHeaders(const std::string& lines) {
        if (lines == headerText && headers != nullptr) return;
        curl_slist_free_all(headers);
        headers = nullptr;
        headerText = lines;
        std::string_view rest = lines;
        while (!rest.empty()) {
            const auto end = rest.find("\r\n");
            const std::string line = EncodeControls(rest.substr(0, end));
            if (!line.empty()) headers = curl_slist_append(headers, line.c_str());
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 2);
        }
        curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers);
    }

    void SetUrl(const std::string& address) {
        if (address == url) return;
        url = address;
        curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
    }

    void SetMethod(bool head) {
        if (head)
            curl_easy_setopt(easy, CURLOPT_NOBODY, 1L);
        else
            curl_easy_setopt(easy, CURLOPT_HTTPGET, 1L);
    }

    CurlHttp1& client;
    CURLM* multi;
    CURL* easy;
    curl_slist* headers = nullptr;
    std::string headerText;
    std::string url;
    EventLoop::TimerId timer = 0;
};

CurlHttp1::CurlHttp1(EventLoop& loop, LastError& lastError, std::int64_t mostBodyBytes)
    : loop_(loop), lastError_(lastError), mostBodyBytes_(mostBodyBytes), engine_(std::make_unique<Engine>(*this)) {}

CurlHttp1::~CurlHttp1() = default;

void CurlHttp1::PerformAction(ActionCode action) {
    switch (action) {
        case Stop:
            if (exchange_ != nullptr) exchange_->stopped = true;
            break;
        case Reset:
            if (exchange_ == nullptr) engine_ = std::make_unique<Engine>(*this);
            break;
        case Get:
        case Head:
            if (exchange_ == nullptr) Perform(action == Head);
            break;
    }
}

void CurlHttp1::Perform(bool head) {
    SetStatusLine("");
    const bool direct = ProxyServer.empty();
    const std::string& host = direct ? URLServer() : ProxyServer;
    if (Lower(URLScheme()) != "http" || !IsPlainHost(host) || !IsPlainHost(URLServer())) {
        Fail(kErrorOther, "Invalid address");
        return;
    }
    const std::string suffix = URLPort() == 80 ? "" : ":" + std::to_string(URLPort());
    const std::string target = RequestTarget(URLPath());
    Exchange exchange;
    exchange.head = head;
    exchange.keepBody = KeepBody;
    exchange_ = &exchange;
    engine_->SetUrl("http://" + host + ":" + std::to_string(direct ? URLPort() : ProxyPort) + "/");
    engine_->SetHeaders(OtherHeaders + (User.empty() ? "" : "Authorization: " + Authorization() + "\r\n"));
    engine_->SetMethod(head);
    curl_easy_setopt(engine_->easy, CURLOPT_REQUEST_TARGET,
                     (direct ? target : "http://" + URLServer() + suffix + target).c_str());
    curl_multi_add_handle(engine_->multi, engine_->easy);
    engine_->Act(CURL_SOCKET_TIMEOUT, 0);
    while (!exchange.done && !exchange.stopped && !exchange.cut) loop_.WaitFor(kWaitForever);
    curl_multi_remove_handle(engine_->multi, engine_->easy);
    if (exchange.grace != 0) loop_.StopTimer(exchange.grace);
    exchange_ = nullptr;
    Finish(exchange);
}

void CurlHttp1::Finish(const Exchange& x) {
    const bool ended = (x.done && x.result == CURLE_OK) || (x.headDone && !x.keepBody && !x.stopped);
    if (ended) {
        SetStatusLine(x.statusLine);
        if (x.code / 100 != 2) {
            const auto blank = x.statusLine.find(' ');
            lastError_.Set(x.code != 0 ? x.code : kErrorOther,
                           blank == std::string::npos ? x.statusLine : std::string(TrimSpace(x.statusLine.substr(blank + 1))));
        }
        if (OnEndTransfer) OnEndTransfer();
    } else if (x.stopped) {
        Fail(kErrorInterrupted, "interrupted");
    } else if (x.tooLong) {
        Fail(kErrorOther, "Reply too long");
    } else {
        long systemError = 0;
        curl_easy_getinfo(engine_->easy, CURLINFO_OS_ERRNO, &systemError);
        const Failure failure = FailureOf(x.result, systemError);
        Fail(failure.number, failure.text);
    }
}

void CurlHttp1::Fail(int number, const std::string& text) {
    SetStatusLine(text);
    lastError_.Set(number, text);
    if (OnError) OnError(number, text);
}

}  // namespace qv
