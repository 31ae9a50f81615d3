#include "check/http_probe.h"

#include "check/link_rules.h"
#include "retrieve/request_text.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr int kMostPasses = 12;
constexpr const char* kAlwaysGetHost = "amazon.com";

}  // namespace

void HttpProbe::Run(LinkProbe& probe) {
    do {
        Pass(probe);
        if (!AnotherPass(probe)) return;
        http_.SetAction(HTTP1::Stop);
    } while (probe.passCount < kMostPasses && flags_.StopRequested == 0 && flags_.SkipRequested == 0);
}

void HttpProbe::Pass(LinkProbe& probe) {
    flags_.Clear();
    if (probe.retryCount == 1) http_.SetAction(HTTP1::Reset);
    http_.SetURL(probe.url);
    const std::string repaired = steps_.RepairCommaHost(probe.url);
    if (repaired != probe.url) {
        probe.url = repaired;
        http_.SetURL(probe.url);
    }
    steps_.BuildRequestHeaders();
    steps_.SplitQueryOffServer();
    const std::string server = http_.URLServer();
    steps_.ArmWatchdog(false);
    probe.lookup = {};
    steps_.FindAddress(probe.retryCount != 0, probe.lookup);
    loop_.YieldIfDue();
    steps_.ArmWatchdog(false);
    probe.deadline = steps_.Now() + settings_.HttpTimeout;
    if (probe.lookup.errorText.empty())
        AskHeedingPresses(probe, server);
    else
        flags_.LastErrorNumber = probe.lookup.errorNumber;
    steps_.ProbeWait(probe.deadline, probe.lookup);
    http_.SetURLServer(server);
    ++probe.passCount;
}

// A Stop or Skip that was pressed just before the exchange ends it as one a moment later would.
void HttpProbe::AskHeedingPresses(LinkProbe& probe, const std::string& server) {
    const bool halted = flags_.StopRequested != 0 || (flags_.SkipRequested != 0 && !probe.skipLeft);
    if (!halted) {
        Ask(probe, server);
        return;
    }
    const auto stop = loop_.StartTimer(std::chrono::milliseconds{0}, false, [this] { http_.SetAction(HTTP1::Stop); });
    Ask(probe, server);
    loop_.StopTimer(stop);
}

void HttpProbe::Ask(LinkProbe& probe, const std::string& server) {
    steps_.FixScheme();
    steps_.ApplyProxySettings();
    steps_.NormalizePath();
    if (probe.retryCount != 0 || Contains(Lower(probe.url), kAlwaysGetHost)) probe.useGet = true;
    steps_.TargetRequestUrl(probe.useGet ? server : probe.lookup.address);
    steps_.Request(probe.useGet ? HTTP1::Get : HTTP1::Head);
}

bool HttpProbe::AnotherPass(LinkProbe& probe) {
    if (!probe.lookup.errorText.empty() || flags_.StopRequested != 0) return false;
    probe.replyText = ReplyText(http_.StatusLine());
    const bool moved = Contains(probe.replyText, "302") || Contains(probe.replyText, "301");
    if (moved && settings_.FollowRedirects != 0) {
        const auto target =
            ParseRedirect(flags_.HeaderBuffer, {http_.URLScheme(), http_.URLServer(), http_.URLPort(), http_.URLPath()});
        if (!target) return false;
        Redirect(probe, *target);
        return true;
    }
    if (flags_.LastErrorText.empty() || Lower(flags_.LastErrorText) == "interrupted") return false;
    return ++probe.retryCount <= 1;
}

void HttpProbe::Redirect(LinkProbe& probe, const std::string& target) {
    probe.url = target;
    http_.SetURL(target);
    probe.url = steps_.RepairCommaHost(target);
    flags_.HeaderBuffer.clear();
    probe.redirectSeen = true;
    window_.StatusBar1.SetText("Redirected " + probe.url);
    probe.retryCount = 0;
}

}  // namespace qv
