#include "check/link_rules.h"

#include "platform/last_error.h"
#include "text/basic_text.h"

namespace qv {
namespace {

Judgement GoodResult(const ProbeOutcome& probe) { return {probe.redirectSeen ? status::kGoodRedirected : status::kGood, true}; }

// A failure without a status code of a server.
std::string FailureStatus(const ProbeOutcome& probe) {
    const std::string reply = Lower(probe.replyText);
    if (Contains(reply, "timed out") || probe.lastErrorNumber == kErrorTimedOut || probe.watchdogExpired)
        return status::kTimedOut;
    if (Contains(reply, "not found") || Contains(reply, "no data")) return status::kNotFound;
    if (Contains(reply, "refused")) return status::kRefused;
    if (probe.lastErrorNumber == kErrorFileMissing) return status::kNotFound;
    return status::kUnknown;
}

Judgement JudgeReply(const ProbeOutcome& probe) {
    const std::string code(probe.replyText.substr(0, 3));
    const std::string padded = code + std::string(6 - code.size(), ' ');
    if (probe.followRedirects && (code == "301" || code == "302")) return {padded, probe.persistentRedirectsOk};
    if (StartsWith(probe.url, "ftp:")) {
        const std::string letters(probe.lastErrorText.substr(0, 3));
        return {"FT" + letters + std::string(4 - letters.size(), ' '), false};
    }
    if (code == "200" && probe.failed200IsBlank) return {std::string(6, ' '), false};
    if (code == "200" || Trim(probe.replyText).empty()) return GoodResult(probe);
    return {padded, false};
}

}  // namespace

LinkDecision DecideLink(const LinkFacts& link) {
    const bool ftp = StartsWithLower(link.url, "ftp:");
    const bool notRemote = link.localMode && link.remoteLinksNotChecked;
    if (link.knownGood) return {LinkRoad::Settled, status::kGood};
    if (StartsWithLower(link.url, "https:")) return {LinkRoad::Settled, status::kSecure};
    if (Contains(link.text, "[Script ")) return {LinkRoad::Settled, status::kScript};
    if (notRemote && (ftp || link.path.empty())) return {LinkRoad::Settled, status::kRemote};
    if (link.localMode && Contains(Lower(link.url), "cgi")) return {LinkRoad::Settled, status::kCgi};
    if (ftp) return {LinkRoad::Ftp, nullptr};
    if (link.localMode && !link.path.empty()) return {LinkRoad::LocalFile, nullptr};
    return {LinkRoad::Http, nullptr};
}

Judgement JudgeOutcome(const ProbeOutcome& probe) {
    if (probe.lastErrorNumber == 0) {
        if (probe.deadlinePassed) return {status::kTimedOut, false};
        return GoodResult(probe);
    }
    if (!probe.lookupErrorText.empty())
        return {probe.lookupErrorNumber == kErrorHostNotFound ? status::kNoSuchHost : status::kInvalidHost, false};
    const char first = probe.replyText.empty() ? '\0' : probe.replyText.front();
    if (first < '1' || first > '5') return {FailureStatus(probe), false};
    return JudgeReply(probe);
}

std::string ReplyText(std::string_view statusLine) {
    const auto blank = statusLine.find(' ');
    return blank == std::string_view::npos ? std::string() : std::string(statusLine.substr(blank + 1));
}

std::string ClosingLine(long good, long questionable) {
    return (questionable == 0 ? std::string("None") : std::to_string(questionable)) + " of " +
           std::to_string(good + questionable) + " links checked were questionable.";
}

}  // namespace qv
