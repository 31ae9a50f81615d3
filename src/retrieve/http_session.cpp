#include "retrieve/http_session.h"

#include <algorithm>

#include "extract/url_text.h"
#include "retrieve/request_text.h"
#include "text/basic_text.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr long kLeastWatchdogMilliseconds = 5000;
constexpr long kMinuteMilliseconds = 60000;
constexpr long kUnknownLength = 2000;
constexpr std::int64_t kSampleBytes = 8000;
constexpr std::int16_t kRunnerStep = 12;
constexpr std::int16_t kRunnerMargin = 50;

bool NothingKnown(const std::string& address) { return address == "0.0.0.0" || address == "Default"; }

}  // namespace

HttpSession::HttpSession(Parts parts) : p_(parts) { ConnectEvents(); }

void HttpSession::ConnectEvents() {
    p_.http.OnConnected = [this] { p_.window.StatusBar1.SetText("Host contacted, waiting for a reply..."); };
    p_.http.OnEndTransfer = [this] { p_.flags.TransferDone = kSet; };
    p_.http.OnHeader = [this](const std::string& field, const std::string& value) { OnHeader(field, value); };
    p_.http.OnStartTransfer = [this] { OnStartTransfer(); };
    p_.http.OnTransfer = [this](long bytes, const std::string& text) { OnTransfer(bytes, text); };
    p_.ipInfo.OnRequestComplete = [this](int, int, const std::string&) { LookupDone_ = kSet; };
}

void HttpSession::ArmWatchdog(bool isFtp) {
    Timer& timer = p_.window.Timer1;
    p_.flags.WatchdogExpired = kClear;
    timer.SetRunning(false);
    if (p_.settings.HttpTimeout < 1.0F) p_.settings.HttpTimeout = 10.0F;
    WatchdogMinutesLeft_ = p_.settings.HttpTimeout / 60.0;
    long interval = kMinuteMilliseconds;
    if (WatchdogMinutesLeft_ <= 1.0)
        interval = static_cast<long>((isFtp ? p_.settings.FtpTimeout : p_.settings.HttpTimeout) * 1000);
    timer.SetInterval(std::max(interval, kLeastWatchdogMilliseconds));
    timer.SetRunning(true);
}

void HttpSession::DisarmWatchdog() { p_.window.Timer1.SetRunning(false); }

void HttpSession::Timer1_Timer() {
    Timer& timer = p_.window.Timer1;
    timer.SetRunning(false);
    if (WatchdogMinutesLeft_ > 1.0) {
        WatchdogMinutesLeft_ -= 1.0;
        timer.SetInterval(WatchdogMinutesLeft_ > 1.0 ? kMinuteMilliseconds : static_cast<long>(WatchdogMinutesLeft_ * 60000));
        timer.SetRunning(true);
        return;
    }
    if (p_.flags.FtpProbeActive != 0) {
        if (AbortFtp) AbortFtp();
    } else {
        p_.http.SetAction(HTTP1::Stop);
        p_.http.Refresh();
        p_.http.SetAction(HTTP1::Stop);
    }
    p_.flags.TransferDone = kSet;
    p_.flags.WatchdogExpired = kSet;
}

void HttpSession::SleepUntil(double deadline) { p_.loop.WaitFor(std::min(deadline - Now() + 0.001, kWaitForever)); }

void HttpSession::ResolveHost(double deadline, Lookup& lookup) {
    const std::string server = p_.http.URLServer();
    const bool isSite = p_.session.SiteHost == Lower(server);
    lookup.errorText.clear();
    lookup.address.clear();
    LookupDone_ = kClear;
    if (IsNumericHost(server)) {
        LookupDone_ = kSet;
        if (isSite) p_.session.SiteHostAddress = server;
        lookup.address = server;
        return;
    }
    p_.ipInfo.SetHostName(server);
    while (LookupDone_ == 0 && !Passed(deadline) && p_.flags.LastErrorNumber == 0 && p_.flags.StopRequested == 0 &&
           p_.flags.SkipRequested == 0)
        SleepUntil(deadline);
    const std::string address = p_.ipInfo.HostAddress();
    if (p_.flags.StopRequested != 0 || p_.flags.SkipRequested != 0) {
        lookup.errorText = "Halted";
    } else if (!NothingKnown(address) && LookupDone_ != 0) {
        if (isSite) p_.session.SiteHostAddress = address;
        lookup.address = address;
    } else if (Passed(deadline)) {
        lookup.errorNumber = kErrorTimedOut;
        lookup.errorText = "Timed Out";
    } else if (NothingKnown(address)) {
        lookup.errorNumber = kErrorInvalidDomain;
        p_.session.SiteHostAddress.clear();
        lookup.errorText = "Invalid Domain Name.";
    } else if (p_.flags.LastErrorNumber != 0) {
        lookup.errorNumber = p_.flags.LastErrorNumber;
        lookup.errorText = p_.flags.LastErrorText;
    } else {
        lookup.errorNumber = kErrorTimedOut;
        lookup.errorText = "Timed Out";
    }
    p_.ipInfo.SetLookupAction(0);
}

void HttpSession::FindAddress(bool retry, Lookup& lookup) {
    const double deadline = Now() + kLookupSeconds;
    if (!p_.session.SiteHostAddress.empty() && p_.session.SiteHost == Lower(p_.http.URLServer()))
        lookup.address = p_.session.SiteHostAddress;
    else if (retry)
        lookup.address = p_.http.URLServer();
    else
        ResolveHost(deadline, lookup);
}

void HttpSession::BuildRequestHeaders() {
    p_.http.OtherHeaders =
        ComposeRequestHeaders(p_.http.URLServer(), p_.http.URLPort(), p_.settings.UserAgent, p_.session.LineBreak);
}

void HttpSession::SplitQueryOffServer() {
    const auto split = SplitServerQuery(p_.http.URLServer());
    if (!split) return;
    p_.http.SetURLPath(split->path);
    p_.http.SetURLServer(split->server);
}

bool HttpSession::IsSiteHost() const { return Lower(p_.http.URLServer()) == p_.session.SiteHost; }

void HttpSession::ApplyProxySettings() {
    const Settings& s = p_.settings;
    HTTP1& http = p_.http;
    if (s.UseProxy != 0) {
        http.ProxyServer = s.ProxyServerName;
        const double port = LeadingNumber(s.ProxyPortText);
        http.ProxyPort = port >= 0 && port <= 65535 ? static_cast<int>(port) : 0;
        if (s.UseProxyAuthentication != 0) {
            http.User = s.ProxyUserName;
            http.Password = s.ProxyPassword;
            http.OtherHeaders += "Proxy-Authorization: " + http.Authorization() + "\r\n";
        }
    } else if (s.UseHttpAuthentication == 0) {
        http.ProxyServer.clear();
        http.ProxyPort = 80;
    }
    // The credentials of the site go to its own host only, those of the proxy into their own line only; a link's own
    // credentials come before either.
    const bool asSite = s.UseHttpAuthentication != 0 && IsSiteHost();
    http.User = asSite ? s.HttpUserName : "";
    http.Password = asSite ? s.HttpPassword : "";
    if (!http.URLUser().empty()) {
        http.User = http.URLUser();
        http.Password = http.URLPassword();
        PercentDecode(http.User);
        PercentDecode(http.Password);
    }
}

void HttpSession::NormalizePath() { p_.http.SetURLPath(NormalizeRequestPath(p_.http.URLPath())); }

void HttpSession::FixScheme() {
    if (p_.http.URLScheme() == "HTTP") p_.http.SetURLScheme("http");
}

void HttpSession::TargetRequestUrl(const std::string& host) {
    std::string path = p_.http.URLPath();
    PercentEncode(path);
    p_.http.SetURL(p_.http.URLScheme() + "://" + host + PortSuffix(p_.http.URLPort()) + path);
}

std::string HttpSession::RepairCommaHost(const std::string& address) {
    const auto pair = SplitCommaHost(p_.http.URLServer());
    if (!pair) return address;
    p_.http.SetURLServer(pair->left);
    return p_.http.URLScheme() + "://" + pair->left + PortSuffix(p_.http.URLPort()) + p_.http.URLPath();
}

void HttpSession::Request(HTTP1::ActionCode action) {
    p_.http.ContentType = "text/html";
    p_.http.KeepBody = p_.flags.RetrievalMode != 0;
    p_.http.SetAction(action);
}

void HttpSession::ProbeWait(double deadline, const Lookup& lookup, bool heedSkip) {
    const RunFlags& f = p_.flags;
    while (f.TransferDone == 0 && !Passed(deadline) && lookup.errorText.empty() && f.LastErrorNumber == 0 &&
           f.StopRequested == 0 && (f.SkipRequested == 0 || !heedSkip))
        SleepUntil(deadline);
}

bool HttpSession::OpenBodyFile() {
    bodyFile_ = p_.files.Create(BodyFilePath());
    return bodyFile_ != nullptr;
}

void HttpSession::OnHeader(const std::string& field, const std::string& value) {
    p_.flags.HeaderBuffer += field + ": " + value + p_.session.LineBreak;
    if (field.empty() && p_.flags.RetrievalMode == 0) p_.flags.TransferDone = kSet;
}

void HttpSession::OnStartTransfer() {
    ArmWatchdog(false);
    if (p_.flags.RetrievalMode == 0) {
        p_.flags.TransferDone = kSet;
        return;
    }
    if (p_.flags.RetrievalMode != kSet) return;
    CheckForm& w = p_.window;
    w.StatusBar1.SetText("Transferring data...");
    if (const auto length = ContentLength(p_.flags.HeaderBuffer)) {
        LengthUnknown_ = kClear;
        TransferLength = *length;
        if (TransferLength > 0) w.ProgressBar1.SetRange(0, TransferLength);
        return;
    }
    TransferLength = kUnknownLength;
    LengthUnknown_ = kSet;
    w.ProgressBar1.SetVisible(false);
    w.Picture1.SetVisible(true);
    RunnerStep_ = kRunnerStep;
    RunnerWidth_ = static_cast<std::int16_t>(w.Picture1.PixelWidth() / 2);
    RunnerLeft_ = -kRunnerMargin;
}

void HttpSession::OnTransfer(long bytes, const std::string& text) {
    ArmWatchdog(false);
    if (p_.flags.RetrievalMode == 0) {
        p_.flags.TransferDone = kSet;
        return;
    }
    if (p_.flags.RetrievalMode == 1 && bodyFile_ != nullptr && bodyFile_->Length() > kSampleBytes) {
        p_.flags.TransferDone = kSet;
        p_.http.SetAction(HTTP1::Stop);
        return;
    }
    p_.flags.BodySeen = kSet;
    if (bodyFile_ != nullptr) bodyFile_->Append(NormalizeLineEnds(text));
    if (p_.flags.RetrievalMode == kSet && TransferLength > 0 && bytes > 0) ShowProgress(bytes);
}

void HttpSession::ShowProgress(long bytes) {
    if (LengthUnknown_ != 0)
        MoveRunner();
    else
        p_.window.ProgressBar1.SetValue(std::min(bytes, p_.window.ProgressBar1.Max()));
}

void HttpSession::MoveRunner() {
    Picture& picture = p_.window.Picture1;
    if (RunnerWidth_ + RunnerLeft_ + RunnerStep_ > picture.PixelWidth() + kRunnerMargin && RunnerStep_ > 0)
        RunnerStep_ = -kRunnerStep;
    if (RunnerLeft_ + RunnerStep_ < -kRunnerMargin && RunnerStep_ < 0) RunnerStep_ = kRunnerStep;
    RunnerLeft_ = static_cast<std::int16_t>(RunnerLeft_ + RunnerStep_);
    picture.DrawRunner(RunnerLeft_, RunnerWidth_);
}

}  // namespace qv
