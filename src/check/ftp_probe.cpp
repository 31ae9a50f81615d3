#include "check/ftp_probe.h"

#include "extract/url_text.h"
#include "retrieve/request_text.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr const char* kGuestName = "anonymous";
constexpr const char* kGuestPassword = "linkcheck@quorvantis.net";

}  // namespace

FtpProbe::FtpProbe(const Settings& settings, RunFlags& flags, HTTP1& http, FTP1& ftp, HttpSession& steps)
    : settings_(settings), flags_(flags), http_(http), ftp_(ftp), steps_(steps) {
    ftp_.OnDirList = ftp_.OnStartTransfer = [this] {
        steps_.DisarmWatchdog();
        flags_.TransferDone = kSet;
        ftp_.SetAction(FTP1::EndSession);
    };
    steps_.AbortFtp = [this] { ftp_.SetAction(FTP1::EndSession); };
}

// The client's URL serves as the parser of the address. What the link itself says of a name comes before all else.
void FtpProbe::SetTarget(const LinkProbe& probe, Kind kind) {
    http_.SetURL(probe.url);
    const std::string& host = http_.URLServer();
    const bool namesPort80 = Contains(probe.url, host + ":80/") || EndsWith(probe.url, host + ":80");
    ftp_.RemoteHost = host + (namesPort80 ? ":80" : PortSuffix(http_.URLPort()));
    ftp_.RemoteFile = http_.URLPath();
    ftp_.User = kind == Kind::Run ? kGuestName : settings_.FtpUserName;
    ftp_.Password = kind == Kind::Run ? kGuestPassword : settings_.FtpPassword;
    if (!http_.URLUser().empty()) {
        ftp_.User = http_.URLUser();
        ftp_.Password = http_.URLPassword();
        PercentDecode(ftp_.User);
        PercentDecode(ftp_.Password);
    }
}

void FtpProbe::Run(LinkProbe& probe, Kind kind) {
    flags_.Clear();
    SetTarget(probe, kind);
    ftp_.Refresh();
    steps_.ArmWatchdog(true);
    probe.deadline = steps_.Now() + settings_.HttpTimeout;
    if (kind == Kind::Run) flags_.FtpProbeActive = kSet;
    ftp_.Timeout = settings_.FtpTimeout;
    ftp_.Passive = true;
    for (const FTP1::ActionCode action : {FTP1::LogOn, FTP1::AskForFile, FTP1::Idle}) ftp_.SetAction(action);
    ftp_.Refresh();
}

}  // namespace qv
