// How a link is judged: which links need no network, and what the outcome of a probe means. Pure.
#pragma once

#include <string>
#include <string_view>

namespace qv {

// Status codes that no server gives. Six characters, blank-padded.
namespace status {
inline constexpr const char* kGood = "OK    ";
inline constexpr const char* kGoodRedirected = "OK *  ";
inline constexpr const char* kSecure = "NA/SE ";
inline constexpr const char* kScript = "NA/SC ";
inline constexpr const char* kRemote = "NA/RE ";
inline constexpr const char* kCgi = "NA/CG ";
inline constexpr const char* kNoSuchHost = "DNSNF ";
inline constexpr const char* kInvalidHost = "INVDN ";
inline constexpr const char* kTimedOut = "TMOUT ";
inline constexpr const char* kNotFound = "NTFND ";
inline constexpr const char* kRefused = "RFUSD ";
inline constexpr const char* kUnknown = "UKNWN ";
inline constexpr const char* kStopped = "STOP  ";
inline constexpr const char* kSkipped = "SKIPD ";
inline constexpr const char* kChecking = "-->   ";
}  // namespace status

// The first rule that applies to a link. For the first kind the status is settled; the others tell how to probe.
enum class LinkRoad { Settled, Ftp, LocalFile, Http };
struct LinkDecision {
    LinkRoad road = LinkRoad::Http;
    const char* status = nullptr;  // when settled
};
struct LinkFacts {
    std::string_view url;  // the three texts trimmed
    std::string_view text;
    std::string_view path;
    bool knownGood = false;  // GoodLinks holds the address, and no stop is asked for
    bool localMode = false;
    bool remoteLinksNotChecked = false;
};
LinkDecision DecideLink(const LinkFacts& link);

// What a probe left behind.
struct ProbeOutcome {
    int lastErrorNumber = 0;
    std::string_view lastErrorText;
    std::string_view replyText;  // the status line from behind its first blank
    std::string_view lookupErrorText;
    int lookupErrorNumber = 0;
    std::string_view url;
    bool watchdogExpired = false;
    bool deadlinePassed = false;
    bool redirectSeen = false;
    bool followRedirects = false;
    bool persistentRedirectsOk = false;
    bool failed200IsBlank = false;  // a failure with a reply of "200" leaves the status blank, instead of being good
};
struct Judgement {
    std::string status;  // six characters
    bool good = false;   // counts as good, and its address enters GoodLinks
};
Judgement JudgeOutcome(const ProbeOutcome& probe);

// The reply text of a status line: what stands behind its first blank; empty when there is none.
std::string ReplyText(std::string_view statusLine);

// The closing line of a run.
std::string ClosingLine(long good, long questionable);

}  // namespace qv
