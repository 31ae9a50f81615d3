// The steps that every retrieval is made of: looking a host up, preparing a request, watching the time, and what happens
// when a reply comes in. Document open, the check run and the single recheck put them together, each in its own order.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "mainwindow/check_form.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/http1.h"
#include "platform/ip_info1.h"
#include "session/session.h"

namespace qv {

class HttpSession {
   public:
    struct Parts {
        CheckForm& window;
        Session& session;
        Settings& settings;
        RunFlags& flags;
        HTTP1& http;
        IPInfo1& ipInfo;
        EventLoop& loop;
        Clock& clock;
        Files& files;
    };
    explicit HttpSession(Parts parts);

    // Restarts Timer1 for a whole time-out. A time-out below a second becomes ten seconds, in the setting itself.
    void ArmWatchdog(bool isFtp);
    void DisarmWatchdog();
    void Timer1_Timer();
    std::function<void()> AbortFtp;  // what the watchdog does to an FTP exchange

    // A look-up's outcome. An empty errorText is a success.
    struct Lookup {
        std::string address;
        std::string errorText;
        int errorNumber = 0;
    };
    // Looks up the host in the client's URL, at most until the deadline (seconds since midnight).
    void ResolveHost(double deadline, Lookup& lookup);
    // The address of the client's host: the remembered one, or by a look-up, or on a retry the name itself.
    void FindAddress(bool retry, Lookup& lookup);

    void BuildRequestHeaders();
    void SplitQueryOffServer();
    void ApplyProxySettings();
    void NormalizePath();
    void FixScheme();
    // Rebuilds the client's URL with this host ("server" for the name, else the address) and the encoded path.
    void TargetRequestUrl(const std::string& host);

    // A host with a comma in the client's URL is cut to its part before the comma; gives the working address: mended, or
    // `address` as it stands. The client's URL was written from `address`.
    std::string RepairCommaHost(const std::string& address);

    void Request(HTTP1::ActionCode action);  // for a document the body is kept, for a probe it isn't

    double Now() const { return p_.clock.SecondsSinceMidnight(); }
    bool Passed(double deadline) const { return Now() > deadline; }
    // Sleeps until something happens, at most until the deadline.
    void SleepUntil(double deadline);
    // Waits for the end of a probe, at most until the deadline; a Skip ends the wait unless it isn't heeded.
    void ProbeWait(double deadline, const Lookup& lookup, bool heedSkip = true);

    bool OpenBodyFile();  // document.htm, emptied
    void CloseBodyFile() { bodyFile_.reset(); }
    std::string BodyFilePath() const { return p_.session.AppPath + "document.htm"; }
    long TransferLength = 0;  // what the reply tells, or 2000 when it tells nothing

    static constexpr double kLookupSeconds = 80;

   private:
    void ConnectEvents();
    void OnHeader(const std::string& field, const std::string& value);
    void OnStartTransfer();
    void OnTransfer(long bytes, const std::string& text);
    void ShowProgress(long bytes);
    void MoveRunner();
    bool IsSiteHost() const;

    Parts p_;
    std::unique_ptr<FileAppender> bodyFile_;
    double WatchdogMinutesLeft_ = 0;
    Flag LookupDone_ = kClear;
    Flag LengthUnknown_ = kClear;
    std::int16_t RunnerLeft_ = 0;
    std::int16_t RunnerWidth_ = 0;
    std::int16_t RunnerStep_ = 0;
};

}  // namespace qv
