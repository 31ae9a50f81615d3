// The HTTP client: one exchange at a time, told by properties, started by an action, followed by events.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/url_parts.h"

namespace qv {

// Implementations do the exchange in PerformAction; all properties live here, so that a stand-in for tests splits and
// keeps them exactly as the real client does.
class HTTP1 {
   public:
    enum ActionCode { Stop = 0, Get = 1, Head = 3, Reset = 4 };

    virtual ~HTTP1() = default;

    // Writing the URL splits it; reading gives the last one written.
    void SetURL(std::string_view url);
    const std::string& URL() const { return url_; }
    const std::string& URLScheme() const { return parts_.Scheme; }
    const std::string& URLServer() const { return parts_.Server; }
    const std::string& URLPath() const { return parts_.Path; }
    int URLPort() const { return parts_.Port; }
    const std::string& URLUser() const { return parts_.User; }
    const std::string& URLPassword() const { return parts_.Password; }
    void SetURLScheme(std::string scheme) { parts_.Scheme = std::move(scheme); }
    void SetURLServer(std::string server) { parts_.Server = std::move(server); }
    void SetURLPath(std::string path) { parts_.Path = std::move(path); }

    std::string OtherHeaders;  // request header lines, each closed by CR LF, sent as given
    std::string ContentType;   // not sent with a request that has no body
    std::string User;          // credentials for the server; empty: none are sent
    std::string Password;
    std::string ProxyServer;  // empty: no proxy
    int ProxyPort = 80;
    bool NetworkReady = false;
    // False: only the head of the reply is wanted. The body of a GET is cut at its first byte, or read to its end when it is
    // short, and the exchange counts as ended with the reply that it had.
    bool KeepBody = true;

    // The value of a Basic authorization made of User and Password ("Basic dTpw").
    std::string Authorization() const;

    // The reply's status line; the failure's text when the exchange failed without a reply; empty before the first exchange.
    const std::string& StatusLine() const { return statusLine_; }

    // Stop ends a running exchange, which then fails with the text "interrupted". Reset lets go of all connections. Get and
    // Head perform an exchange: the call returns when it has ended or failed; events, timers and the user are served
    // meanwhile. A reply that isn't 2xx is a failure: its code, and the text "404 Not Found". Failures go to LastError.
    // Get or Head while an exchange runs is passed over.
    void SetAction(ActionCode action) { PerformAction(action); }
    virtual void Refresh() {}

    std::function<void()> OnConnected;
    std::function<void()> OnEndTransfer;
    std::function<void(int number, const std::string& text)> OnError;
    // Each header of the final reply; at the end of the head once more with both texts empty.
    std::function<void(const std::string& field, const std::string& value)> OnHeader;
    std::function<void()> OnStartTransfer;
    std::function<void(long bytesSoFar, const std::string& text)> OnTransfer;

   protected:
    virtual void PerformAction(ActionCode action) = 0;
    void SetStatusLine(std::string line) { statusLine_ = std::move(line); }

   private:
    UrlParts parts_;
    std::string url_;
    std::string statusLine_;
};

// The text with its control characters and DEL percent-encoded, so that it can stand in a header line.
std::string EncodeControls(std::string_view text);

// The lines of a text of request headers, each closed by CR LF: without their ends, with their control characters encoded;
// empty ones are left out.
std::vector<std::string> RequestHeaderLines(std::string_view text);

// The target of a request line: the path as it stands, with blanks, control characters and DEL percent-encoded and the
// fragment cut off; "/" when it is empty, and a "/" put in front of a path that begins otherwise.
std::string RequestTarget(std::string_view path);

}  // namespace qv
