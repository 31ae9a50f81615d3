#include <gtest/gtest.h>

#include "check/check_world.h"

namespace qv {
namespace {

using Texts = std::vector<std::string>;

struct LinkRecheckTest : CheckWorld {
    std::string Recheck(int row = 0) {
        window.List1.SetListIndex(row);
        recheck.MenuLinkRecheck_Click();
        return std::string(session.Links.LinkFlags[static_cast<std::size_t>(row) + 1].TrimmedStatus());
    }
};

TEST_F(LinkRecheckTest, NothingHappensWithoutARow) {
    Document({});
    recheck.MenuLinkRecheck_Click();
    EXPECT_TRUE(http.log.empty());
    EXPECT_EQ(window.StatusBar1.Text(), "");
}

TEST_F(LinkRecheckTest, AnFtpLinkIsAskedWithTheNameOfTheSettings) {
    settings.FtpUserName = "me";
    settings.FtpPassword = "word";
    Document({"ftp://1.1.1.1/a"});
    ftp.exchange = [this](FakeFtp1& client) {
        EXPECT_EQ(flags.FtpProbeActive, 0);
        client.OnStartTransfer();
    };
    EXPECT_EQ(Recheck(), "OK");
    EXPECT_EQ(ftp.log.front(), "log on 1.1.1.1 me:word");
    EXPECT_FALSE(session.Good.Contains("ftp://1.1.1.1/a"));
}

TEST_F(LinkRecheckTest, AFileIsLookedUpAsItsPathStands) {
    settings.ProgramMode = kLocalMode;
    files.files["\\w\\a b.htm"] = "";
    session.Links.Add("x", "http://1.1.1.1/a", {}, "\\w\\a%20b.htm");
    Document({});
    EXPECT_EQ(Recheck(), "NTFND");
    files.files["\\w\\a%20b.htm"] = "";
    EXPECT_EQ(Recheck(), "OK");
}

TEST_F(LinkRecheckTest, ARowThatNeedsNoProbeTakesTheMarkOffTheFirstRow) {
    Document({"http://1.1.1.1/a", "https://1.1.1.1/b"});
    session.Links.LinkFlags[1].Mark = 'X';
    window.List1.SetSelected(0, true);
    EXPECT_EQ(Recheck(1), "NA/SE");
    EXPECT_FALSE(window.List1.Selected(0));
    EXPECT_TRUE(http.log.empty());
}

TEST_F(LinkRecheckTest, TheWindowIsInWorkingOrderAfterwards) {
    Document({"ftp://1.1.1.1/a"});
    ftp.exchange = [this](FakeFtp1& client) {
        EXPECT_TRUE(window.ComStop.Enabled());
        EXPECT_TRUE(window.ComSkip.Enabled());
        EXPECT_FALSE(window.ComStart.Enabled());
        EXPECT_FALSE(window.List1.Enabled());
        client.OnStartTransfer();
    };
    Recheck();
    EXPECT_FALSE(window.ComStop.Enabled());
    EXPECT_TRUE(window.ComStart.Enabled());
    EXPECT_TRUE(window.List1.Enabled());
    EXPECT_EQ(window.StatusBar1.Text(), "Done.");
    EXPECT_EQ(window.LabelInd.Caption(), "Document 1 of 1");
    EXPECT_FALSE(Bytes("cache\\xlf00001.lks").empty());
}

TEST_F(LinkRecheckTest, AStopWritesItsStatusAndNothingElse) {
    Document({"ftp://1.1.1.1/a"});
    ftp.exchange = [this](FakeFtp1& client) {
        flags.StopRequested = kSet;
        client.OnStartTransfer();
    };
    EXPECT_EQ(Recheck(), "STOP");
    EXPECT_EQ(flags.EnterpriseAbort, 0);
    EXPECT_EQ(session.Links.LinkFlags[1].Mark, 'X');
}

TEST_F(LinkRecheckTest, ASkipIsNoStatus) {
    Document({"ftp://1.1.1.1/a"});
    ftp.exchange = [this](FakeFtp1& client) {
        flags.SkipRequested = kSet;
        client.OnStartTransfer();
    };
    EXPECT_EQ(Recheck(), "OK");
    EXPECT_EQ(flags.SkipRequested, kSet);
}

}  // namespace
}  // namespace qv
