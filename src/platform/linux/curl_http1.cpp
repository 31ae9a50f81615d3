#include "platform/linux/curl_http1.h"

#include <cerrno>
#include <chrono>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/linux/curl_engine.h"
#include "platform/reply_head.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr std::chrono::milliseconds kShortBodyGrace{200};
constexpr std::int64_t kShortBodyBytes = 16384;

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

Failure FailureOf(CURLcode code, int systemError, bool bytesCame) {
    const bool ofConnection = code == CURLE_COULDNT_CONNECT || code == CURLE_RECV_ERROR || code == CURLE_SEND_ERROR;
    if (ofConnection && systemError == ETIMEDOUT) code = CURLE_OPERATION_TIMEDOUT;
    switch (code) {
        case CURLE_COULDNT_CONNECT:
            return {kErrorOther, systemError == ECONNREFUSED ? "Connection refused" : "Connection failed"};
        case CURLE_OPERATION_TIMEDOUT: return {kErrorTimedOut, "Operation timed out"};
        case CURLE_COULDNT_RESOLVE_HOST: return {kErrorOther, "Host not found"};
        case CURLE_GOT_NOTHING: return {kErrorOther, bytesCame ? "Reply broken off" : "Server sent no data"};
        case CURLE_RECV_ERROR:
        case CURLE_SEND_ERROR: return {kErrorOther, "Connection reset"};
        case CURLE_OK:  // the connection was closed inside the head
            return {kErrorOther, "Reply broken off"};
        case CURLE_PARTIAL_FILE: return {kErrorOther, "Transfer broken off"};
        case CURLE_URL_MALFORMAT: return {kErrorOther, "Invalid address"};
        default: return {kErrorOther, "Invalid reply"};
    }
}

struct HttpEvent {
    enum Kind { Connected, Header, StartTransfer, Transfer } kind;
    std::string field;
    std::string text;  // a header's value, a chunk of the body
    std::int64_t bytesSoFar = 0;
};

}  // namespace

class CurlHttp1::Exchange : public CurlEngine::Sink {
   public:
    Exchange(CurlHttp1& owner, bool head) : client(owner), keepBody(owner.KeepBody), isHead(head) {}
    ~Exchange() override {
        if (grace_ != 0) client.loop_.StopTimer(grace_);
    }
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    bool Over() const { return stopped || ended || cut; }
    void Stop() {
        if (!Over() || !events_.empty()) stopped = true;
    }

    void Connected() override { events_.push_back({HttpEvent::Connected, {}, {}}); }

    bool HeadLine(std::string_view line) override {
        const ReplyHead::Line part = reply.Take(line);
        tooLong = reply.Bytes() > bounds::kReplyHeaderBytes;
        if (tooLong) return false;
        if (part == ReplyHead::Line::Field) events_.push_back({HttpEvent::Header, reply.Field(), reply.Value()});
        if (part == ReplyHead::Line::End) {
            events_.push_back({HttpEvent::Header, {}, {}});
            if (!keepBody && !isHead) AwaitShortBody();
        }
        return true;
    }

    bool Body(std::string_view chunk) override {
        bodyBytes_ += static_cast<std::int64_t>(chunk.size());
        if (!started_) events_.push_back({HttpEvent::StartTransfer, {}, {}});
        started_ = true;
        if (!keepBody) {
            cut = reply.ContentLength() < 0 || reply.ContentLength() > kShortBodyBytes;
            return !cut;
        }
        tooLong = bodyBytes_ > client.mostBodyBytes_;
        if (tooLong) return false;
        events_.push_back({HttpEvent::Transfer, {}, std::string(chunk), bodyBytes_});
        return true;
    }

    void Ended(CURLcode code, int error) override {
        ended = true;
        result = code;
        systemError = error;
    }

    void Stepped() override {
        if (telling_) return;
        telling_ = true;
        for (std::size_t next = 0; next < events_.size() && !stopped; ++next) {
            const HttpEvent event = std::move(events_[next]);  // a handler that turns the loop lets the list grow
            Tell(event);
        }
        events_.clear();
        telling_ = false;
    }

    CurlHttp1& client;
    const bool keepBody;
    const bool isHead;
    ReplyHead reply;
    bool stopped = false;
    bool ended = false;
    bool cut = false;  // the reply's head is all that is wanted
    bool tooLong = false;
    CURLcode result = CURLE_OK;
    int systemError = 0;

   private:
    // The body of a probe may come to its end when it is short, so that the connection can be kept.
    void AwaitShortBody() {
        grace_ = client.loop_.StartTimer(kShortBodyGrace, false, [this] {
            grace_ = 0;
            cut = true;
        });
    }

    void Tell(const HttpEvent& event) const {
        switch (event.kind) {
            case HttpEvent::Connected:
                if (client.OnConnected) client.OnConnected();
                break;
            case HttpEvent::Header:
                if (client.OnHeader) client.OnHeader(event.field, event.text);
                break;
            case HttpEvent::StartTransfer:
                if (client.OnStartTransfer) client.OnStartTransfer();
                break;
            case HttpEvent::Transfer:
                if (client.OnTransfer) client.OnTransfer(static_cast<long>(event.bytesSoFar), event.text);
                break;
        }
    }

    std::vector<HttpEvent> events_;  // taken down inside libcurl, told outside of it
    bool telling_ = false;
    bool started_ = false;
    std::int64_t bodyBytes_ = 0;
    EventLoop::TimerId grace_ = 0;
};

CurlHttp1::CurlHttp1(EventLoop& loop, LastError& lastError, std::int64_t mostBodyBytes)
    : loop_(loop), lastError_(lastError), mostBodyBytes_(mostBodyBytes), engine_(std::make_unique<CurlEngine>(loop)) {}

CurlHttp1::~CurlHttp1() = default;

void CurlHttp1::PerformAction(ActionCode action) {
    switch (action) {
        case Stop:
            if (exchange_ != nullptr) exchange_->Stop();
            break;
        case Reset:
            if (exchange_ == nullptr) engine_ = std::make_unique<CurlEngine>(loop_);
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
    CurlEngine::Request request;
    request.head = head;
    request.origin = "http://" + host + ":" + std::to_string(direct ? URLPort() : ProxyPort) + "/";
    request.target = RequestTarget(URLPath());
    if (!direct) request.target.insert(0, "http://" + URLServer() + (URLPort() == 80 ? "" : ":" + std::to_string(URLPort())));
    request.headers = RequestHeaderLines(OtherHeaders);
    if (!User.empty()) request.headers.push_back("Authorization: " + Authorization());
    Exchange exchange(*this, head);
    exchange_ = &exchange;
    engine_->Start(request, exchange);
    while (!exchange.Over()) loop_.WaitFor(kWaitForever);
    engine_->Drop();
    exchange_ = nullptr;
    Finish(exchange);
}

void CurlHttp1::Finish(const Exchange& x) {
    const bool whole = x.ended && x.result == CURLE_OK;
    if (x.stopped) {
        Fail(kErrorInterrupted, "interrupted");
    } else if (x.tooLong) {
        Fail(kErrorOther, "Reply too long");
    } else if (x.reply.Complete() && (whole || !x.keepBody)) {
        FinishWithReply(x);
    } else {
        const Failure failure = FailureOf(x.result, x.systemError, engine_->ReceivedBeforeClose() > 0);
        Fail(failure.number, failure.text);
    }
}

void CurlHttp1::FinishWithReply(const Exchange& x) {
    SetStatusLine(x.reply.StatusLine());
    const int code = x.reply.Code();
    if (code == 0)
        lastError_.Set(kErrorOther, "Invalid reply");
    else if (code / 100 != 2)
        lastError_.Set(code, x.reply.CodeAndReason());
    if (OnEndTransfer) OnEndTransfer();
}

void CurlHttp1::Fail(int number, const std::string& text) {
    SetStatusLine(text);
    lastError_.Set(number, text);
    if (OnError) OnError(number, text);
}

}  // namespace qv
