#include "check/link_rules.h"

#include <gtest/gtest.h>

#include "platform/last_error.h"

namespace qv {
namespace {

struct DecisionCase {
    const char* name;
    LinkFacts facts;
    LinkRoad road;
    const char* status;
};

class Decision : public testing::TestWithParam<DecisionCase> {};

TEST_P(Decision, FollowsTheFirstRuleThatApplies) {
    const LinkDecision decision = DecideLink(GetParam().facts);
    EXPECT_EQ(decision.road, GetParam().road);
    EXPECT_STREQ(decision.status, GetParam().status);
}

constexpr bool kLocal = true;
constexpr bool kNoRemote = true;

INSTANTIATE_TEST_SUITE_P(
    LinkRules, Decision,
    testing::Values(DecisionCase{"known", {"https://h/", "[Script URL]", "", true}, LinkRoad::Settled, "OK    "},
                    DecisionCase{"secure", {"HTTPS://h/", "[Script URL]", ""}, LinkRoad::Settled, "NA/SE "},
                    DecisionCase{"script", {"http://h/", "[Script URL]", ""}, LinkRoad::Settled, "NA/SC "},
                    DecisionCase{"scriptCase", {"http://h/", "[script url]", ""}, LinkRoad::Http, nullptr},
                    DecisionCase{"ftpRemote", {"FTP://h/cgi", "a", "\\p", false, kLocal, kNoRemote}, LinkRoad::Settled, "NA/RE "},
                    DecisionCase{"remote", {"http://h/cgi", "a", "", false, kLocal, kNoRemote}, LinkRoad::Settled, "NA/RE "},
                    DecisionCase{"remoteInternet", {"http://h/", "a", "", false, false, kNoRemote}, LinkRoad::Http, nullptr},
                    DecisionCase{"cgi", {"http://h/DoCGI/x", "a", "\\p", false, kLocal, kNoRemote}, LinkRoad::Settled, "NA/CG "},
                    DecisionCase{"cgiInternet", {"http://h/cgi/x", "a", ""}, LinkRoad::Http, nullptr},
                    DecisionCase{"ftp", {"Ftp://h/a", "a", "\\p", false, kLocal}, LinkRoad::Ftp, nullptr},
                    DecisionCase{"ftpCgi", {"ftp://h/cgi", "a", "", false, kLocal}, LinkRoad::Settled, "NA/CG "},
                    DecisionCase{"file", {"http://h/a", "a", "\\p", false, kLocal}, LinkRoad::LocalFile, nullptr},
                    DecisionCase{"pathInternet", {"http://h/a", "a", "\\p"}, LinkRoad::Http, nullptr},
                    DecisionCase{"http", {"http://h/a", "a", "", false, kLocal}, LinkRoad::Http, nullptr}),
    [](const auto& tested) { return tested.param.name; });

ProbeOutcome Failed(int number, std::string_view reply, std::string_view text = "x") {
    return {.lastErrorNumber = number, .lastErrorText = text, .replyText = reply, .url = "http://h/", .followRedirects = true};
}

std::string StatusOf(const ProbeOutcome& probe) { return JudgeOutcome(probe).status; }

TEST(Judging, ASuccessIsGood) {
    ProbeOutcome probe;
    EXPECT_EQ(StatusOf(probe), "OK    ");
    EXPECT_TRUE(JudgeOutcome(probe).good);
    probe.redirectSeen = true;
    EXPECT_EQ(StatusOf(probe), "OK *  ");
}

TEST(Judging, ASuccessBehindTheDeadlineTimedOut) {
    ProbeOutcome probe;
    probe.deadlinePassed = true;
    EXPECT_EQ(StatusOf(probe), "TMOUT ");
    EXPECT_FALSE(JudgeOutcome(probe).good);
}

TEST(Judging, LookupFailures) {
    ProbeOutcome probe = Failed(kErrorHostNotFound, "404 left over");
    probe.lookupErrorText = "Host not found";
    probe.lookupErrorNumber = kErrorHostNotFound;
    EXPECT_EQ(StatusOf(probe), "DNSNF ");
    probe.lookupErrorNumber = kErrorTimedOut;
    EXPECT_EQ(StatusOf(probe), "INVDN ");
    probe.lookupErrorNumber = kErrorInvalidDomain;
    EXPECT_EQ(StatusOf(probe), "INVDN ");
}

TEST(Judging, FailureTexts) {
    EXPECT_EQ(StatusOf(Failed(1, "Timed Out")), "TMOUT ");
    EXPECT_EQ(StatusOf(Failed(kErrorTimedOut, "")), "TMOUT ");
    EXPECT_EQ(StatusOf(Failed(1, "Not Found")), "NTFND ");
    EXPECT_EQ(StatusOf(Failed(1, "sent no data")), "NTFND ");
    EXPECT_EQ(StatusOf(Failed(1, "refused")), "RFUSD ");
    EXPECT_EQ(StatusOf(Failed(kErrorFileMissing, "")), "NTFND ");
    EXPECT_EQ(StatusOf(Failed(1, "reset")), "UKNWN ");
    EXPECT_EQ(StatusOf(Failed(1, "")), "UKNWN ");
    EXPECT_EQ(StatusOf(Failed(1, "999 Odd")), "UKNWN ");
    ProbeOutcome probe = Failed(1, "refused");
    probe.watchdogExpired = true;
    EXPECT_EQ(StatusOf(probe), "TMOUT ");
}

TEST(Judging, CodesOfServers) {
    EXPECT_EQ(StatusOf(Failed(404, "404 Not Found")), "404   ");
    EXPECT_EQ(StatusOf(Failed(500, "500")), "500   ");
    EXPECT_EQ(StatusOf(Failed(1, "5")), "5     ");
    EXPECT_FALSE(JudgeOutcome(Failed(404, "404 Not Found")).good);
}

TEST(Judging, AFailureWithAReplyOf200IsGood) {
    EXPECT_EQ(StatusOf(Failed(1, "200 OK")), "OK    ");
    EXPECT_TRUE(JudgeOutcome(Failed(1, "200 OK")).good);
    ProbeOutcome alone = Failed(1, "200 OK");
    alone.failed200IsBlank = true;
    EXPECT_EQ(JudgeOutcome(alone).status, "      ");
    EXPECT_FALSE(JudgeOutcome(alone).good);
}

TEST(Judging, RedirectsThatStand) {
    ProbeOutcome probe = Failed(301, "301 Moved");
    EXPECT_EQ(StatusOf(probe), "301   ");
    EXPECT_FALSE(JudgeOutcome(probe).good);
    probe.persistentRedirectsOk = true;
    EXPECT_EQ(StatusOf(probe), "301   ");
    EXPECT_TRUE(JudgeOutcome(probe).good);
    probe.followRedirects = false;
    EXPECT_FALSE(JudgeOutcome(probe).good);
    EXPECT_EQ(StatusOf(probe), "301   ");
}

TEST(Judging, FtpCodesNeedAReplyText) {
    ProbeOutcome probe = Failed(550, "550 no", "550 No such file");
    probe.url = "ftp://h/a";
    EXPECT_EQ(StatusOf(probe), "FT550 ");
    probe.replyText = "";
    EXPECT_EQ(StatusOf(probe), "UKNWN ");
}

TEST(ReplyTextOf, StandsBehindTheFirstBlank) {
    EXPECT_EQ(ReplyText("HTTP/1.1 404 Not Found"), "404 Not Found");
    EXPECT_EQ(ReplyText("Connection refused"), "refused");
    EXPECT_EQ(ReplyText("interrupted"), "");
    EXPECT_EQ(ReplyText(""), "");
}

TEST(ClosingLineOf, SaysNoneForZero) {
    EXPECT_EQ(ClosingLine(0, 0), "None of 0 links checked were questionable.");
    EXPECT_EQ(ClosingLine(2, 12), "12 of 14 links checked were questionable.");
}

}  // namespace
}  // namespace qv
