#include "platform/linux/curl_smtp1.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/files.h"
#include "platform/linux/gmime_text.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr int kImplicitTlsPort = 465;
constexpr long kGrace = 15;  // seconds

std::string Decoded(const std::string& base64) {
    gsize length = 0;
    guchar* bytes = g_base64_decode(base64.c_str(), &length);
    std::string text(reinterpret_cast<const char*>(bytes), length);
    g_free(bytes);
    return text;
}

}  // namespace

CurlSmtp1::CurlSmtp1(EventLoop& loop) : loop_(loop), easy_(curl_easy_init()), transfer_(std::make_unique<CurlPerform>(loop, easy_)) {}

CurlSmtp1::~CurlSmtp1() {
    transfer_.reset();
    curl_easy_cleanup(easy_);
}

SMTP1::ErrorText CurlSmtp1::SetAction(ActionCode action) {
    switch (action) {
        case Reset:
            if (!sending_) Clear();
            return "";
        case Send: return sending_ ? "A mail is being sent" : SendMessage();
        case Idle:
        case Disconnect:
            interrupted_ = sending_;
            transfer_->End();
            return "";
    }
    return "";
}

// The three lines of a log-in, as the library wants them.
void CurlSmtp1::SetLogIn() {
    const bool logIn = commands_.size() >= 3 && Lower(commands_[0]) == "auth login";
    const std::string name = logIn ? Decoded(commands_[1]) : "";
    const std::string word = logIn ? Decoded(commands_[2]) : "";
    curl_easy_setopt(easy_, CURLOPT_USERNAME, logIn ? name.c_str() : nullptr);
    curl_easy_setopt(easy_, CURLOPT_PASSWORD, logIn ? word.c_str() : nullptr);
    curl_easy_setopt(easy_, CURLOPT_LOGIN_OPTIONS, logIn ? "AUTH=LOGIN" : nullptr);
}

SMTP1::ErrorText CurlSmtp1::SetUp(const MailServerPlace& place, curl_slist*& recipients) {
    if (place.host.empty() || place.port == 0) return "Not a mail server: " + MailServer;
    recipients = curl_slist_append(recipients, AddressIn(SendTo).c_str());
    for (const auto& address : AddressesIn(Cc + "," + BCc)) recipients = curl_slist_append(recipients, address.c_str());
    errno = 0;
    body_ = std::ifstream(NativePath(MessageFile), std::ios::binary | std::ios::ate);
    if (!body_.is_open()) return NativePath(MessageFile) + ": " + std::generic_category().message(errno);
    const auto bodyLength = static_cast<curl_off_t>(body_.tellg());
    body_.seekg(0);
    headers_ = ComposeMailHeaders({From, SendTo, Cc, Subject, OtherHeaders}) + MessageText;
    headersSent_ = 0;

    curl_easy_reset(easy_);
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
    curl_easy_setopt(easy_, CURLOPT_SERVER_RESPONSE_TIMEOUT, static_cast<long>(Timeout) + kGrace);  // the time is watched here
    curl_easy_setopt(easy_, CURLOPT_CONNECTTIMEOUT, static_cast<long>(Timeout) + kGrace);
    curl_easy_setopt(easy_, CURLOPT_MAIL_FROM, ("<" + AddressIn(From) + ">").c_str());
    curl_easy_setopt(easy_, CURLOPT_MAIL_RCPT, recipients);
    SetLogIn();
    curl_easy_setopt(easy_, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(easy_, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(headers_.size()) + bodyLength);
    curl_easy_setopt(easy_, CURLOPT_READFUNCTION, &CurlSmtp1::MessageWanted);
    curl_easy_setopt(easy_, CURLOPT_READDATA, this);
    curl_easy_setopt(easy_, CURLOPT_HEADERFUNCTION, &CurlSmtp1::ReplyCame);
    curl_easy_setopt(easy_, CURLOPT_HEADERDATA, this);
    curl_easy_setopt(easy_, CURLOPT_OPENSOCKETFUNCTION, &CurlSmtp1::OpenSocket);
    curl_easy_setopt(easy_, CURLOPT_OPENSOCKETDATA, this);
    curl_easy_setopt(easy_, CURLOPT_CLOSESOCKETFUNCTION, &CurlSmtp1::CloseSocket);
    curl_easy_setopt(easy_, CURLOPT_CLOSESOCKETDATA, this);
    curl_easy_setopt(easy_, CURLOPT_DEBUGFUNCTION, &CurlSmtp1::Spoken);
    curl_easy_setopt(easy_, CURLOPT_DEBUGDATA, this);
    curl_easy_setopt(easy_, CURLOPT_VERBOSE, 1L);
    return "";
}

SMTP1::ErrorText CurlSmtp1::SendMessage() {
    sending_ = true;
    interrupted_ = bodyFailed_ = false;
    refusal_.clear();
    curl_slist* recipients = nullptr;
    ErrorText error = SetUp(ParseMailServer(MailServer), recipients);
    if (error.empty()) {
        std::string libraryText(CURL_ERROR_SIZE, '\0');
        curl_easy_setopt(easy_, CURLOPT_ERRORBUFFER, libraryText.data());
        lastSign_ = std::chrono::steady_clock::now();
        const CURLcode result = transfer_->Run([this] { return SecondsLeft(); });
        libraryText_ = libraryText.c_str();
        curl_easy_setopt(easy_, CURLOPT_ERRORBUFFER, nullptr);
        error = ErrorOf(result);
    }
    transfer_->CloseConnections();
    curl_easy_reset(easy_);
    curl_slist_free_all(recipients);
    body_.close();
    sending_ = false;
    return error;
}

SMTP1::ErrorText CurlSmtp1::ErrorOf(CURLcode result) const {
    if (interrupted_) return "interrupted";
    if (bodyFailed_) return NativePath(MessageFile) + ": " + std::generic_category().message(EIO);
    if (result == CURLE_OK) return "";
    if (result == CURLE_OPERATION_TIMEDOUT) return "The mail server doesn't answer";
    std::string text = libraryText_.empty() ? curl_easy_strerror(result) : libraryText_;
    if (!refusal_.empty()) text += " (" + refusal_ + ")";
    return text;
}

double CurlSmtp1::SecondsLeft() const {
    const std::chrono::duration<double> silent = std::chrono::steady_clock::now() - lastSign_;
    return Timeout - silent.count();
}

// Called from inside libcurl: these take down what came and give what is wanted.
std::size_t CurlSmtp1::ReplyCame(char* data, std::size_t size, std::size_t count, void* self) {
    auto* client = static_cast<CurlSmtp1*>(self);
    client->lastSign_ = std::chrono::steady_clock::now();
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
    const std::size_t fromHeaders = std::min(room, client->headers_.size() - client->headersSent_);
    if (fromHeaders > 0) {
        client->headers_.copy(to, fromHeaders, client->headersSent_);
        client->headersSent_ += fromHeaders;
        return fromHeaders;
    }
    client->body_.read(to, static_cast<std::streamsize>(room));
    client->bodyFailed_ = client->body_.bad();
    return client->bodyFailed_ ? CURL_READFUNC_ABORT : static_cast<std::size_t>(client->body_.gcount());
}

// libcurl takes its leave of the server and then waits for the reply, without a turn of the loop. That wait is cut short: the reply
// means nothing any more.
int CurlSmtp1::Spoken(CURL*, curl_infotype type, char* data, std::size_t size, void* self) {
    auto* client = static_cast<CurlSmtp1*>(self);
    if (type == CURLINFO_HEADER_OUT && std::string_view(data, size) == "QUIT\r\n")
        for (const curl_socket_t socket : client->sockets_) shutdown(socket, SHUT_RD);
    return 0;
}

curl_socket_t CurlSmtp1::OpenSocket(void* self, curlsocktype, curl_sockaddr* address) {
    auto* client = static_cast<CurlSmtp1*>(self);
    const curl_socket_t opened = socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
    if (opened != CURL_SOCKET_BAD) client->sockets_.insert(opened);
    return opened;
}

int CurlSmtp1::CloseSocket(void* self, curl_socket_t socket) {
    static_cast<CurlSmtp1*>(self)->sockets_.erase(socket);
    return close(socket);
}

}  // namespace qv
