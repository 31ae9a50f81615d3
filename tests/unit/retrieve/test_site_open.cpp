#include <gtest/gtest.h>

#include <map>

#include "fakes/fake_clock.h"
#include "fakes/fake_files.h"
#include "fakes/fake_http1.h"
#include "fakes/fake_ip_info1.h"
#include "fakes/fake_loop.h"
#include "retrieve/site_open.h"

namespace qv {
namespace {

using Texts = std::vector<std::string>;

class NoPrograms : public Programs {
   public:
    bool Exists(const std::string&) const override { return false; }
    bool Start(const std::string&, const std::vector<std::string>&) override { return false; }
    bool OpenWithDesktop(const std::string&) override { return false; }
};

// The walk over a site that is told as pages with their links. Opening a page lists it and shows its links.
struct SiteOpenTest : testing::Test, WindowListener {
    FakeClock clock;
    FakeLoop loop{clock};
    FakeFiles files;
    NoPrograms programs;
    RunFlags flags;
    FakeHttp1 http{flags};
    FakeIpInfo1 ipInfo;
    Session session;
    Settings settings;
    WindowSystem windows{[this] { loop.WaitFor(1); }};
    CheckForm window{windows};
    DocumentStore store{files, session};
    WindowRules rules{window, session, settings, programs, store};
    HttpSession steps{{window, session, settings, flags, http, ipInfo, loop, clock, files}};
    SiteOpen site{{window, rules, session, settings, flags, store, http, steps, loop, files}};
    std::map<std::string, Texts> pages;
    Texts opened, messages, log;
    std::string answer = "Yes";
    std::string stopAt;  // the cancel button is pressed while this page opens

    void SetUp() override {
        windows.Listen(this);
        session.AppPath = "\\home\\";
        settings.DocumentTypes = " .htm ";
        settings.EntryIsSite = kClear;
        window.SetVisible(true);
        site.ShowWizard = [this] {
            log.push_back("wizard");
            session.SiteUrl = "http://h/s/";
            session.SiteFileName = "i.htm";
        };
        site.MenuFileNew_Click = [this] {
            log.push_back("new");
            window.TextFileName.SetText("");
            window.txtFileName.Clear();
        };
        site.ComOpen_Click = [this] { Open(); };
        site.ComStart_Click = [this] {
            log.push_back("check");
            window.LabelInd.SetCaption("None of 1 links checked were questionable.");
        };
        site.txtFileName_Click = [] {};
        site.ShowReportForm = [this] {
            log.push_back("log " + session.LogTitle);
            session.LogTitle.clear();  // as the window does
        };
        site.UnloadReportForm = [] {};
        site.OpenLocalWebSite = [this] { log.push_back("local"); };
    }
    void Open() {
        const std::string url = window.TextFileName.Text();
        opened.push_back(url);
        http.SetURL(url);
        if (url == stopAt) {
            site.Command1_Click();
            return;
        }
        if (pages.count(url) == 0) return;  // an error: what was there stays
        session.Links.Clear();
        for (const auto& link : pages[url]) session.Links.Add("x", link, {}, "\\p");
        flags.IgnoreControlEvents = kSet;
        window.txtFileName.AddItem(url, window.txtFileName.Count() + 1);
        window.txtFileName.SetListIndex(window.txtFileName.Count() - 1);
        flags.IgnoreControlEvents = kClear;
    }
    void FormShown(Form&) override {}
    void FormClosed(const Form&) override {}
    void MessageShown(const MessageRequest& request) override {
        messages.push_back(request.text);
        windows.Answer(request.question ? answer : request.defaultButton);
    }
    void DialogShown(const FileDialogRequest&) override {}
    void Beeped() override {}
    std::string Bytes(const std::string& name) { return files.files["\\home\\cache\\" + name]; }
};

TEST_F(SiteOpenTest, GoesOverTheSiteInWavesAndOpensEachPageOnce) {
    pages = {{"http://h/s/i.htm", {"http://h/s/a.htm", "http://h/s/b.htm", "http://h/s/a.htm"}},
             {"http://h/s/a.htm", {"http://h/s/c.htm", "http://h/s/i.htm"}},
             {"http://h/s/b.htm", {"http://h/s/c.htm", "http://h/s/d"}},
             {"http://h/s/c.htm", {}},
             {"http://h/s/d", {}}};
    site.Command1_Click();
    EXPECT_EQ(opened, (Texts{"http://h/s/i.htm", "http://h/s/a.htm", "http://h/s/b.htm", "http://h/s/c.htm", "http://h/s/d"}));
    EXPECT_EQ(log, (Texts{"wizard", "new", "log "}));
    EXPECT_EQ(session.LogText, "Opening Web Site... http://h/s/\r\n\r\nSite Download Complete.\r\n\r\n");
    EXPECT_EQ(session.SiteRoot, "http://h/s/");
    EXPECT_EQ(settings.EntryIsSite, kSet);
    EXPECT_EQ(window.Command1.Caption(), "Check &Web Site");
    EXPECT_EQ(window.LabelInd.Caption(), "Document 1 of 5");
    EXPECT_EQ(flags.SiteOpenRunning, 0);
    EXPECT_EQ(window.Pointer(), Pointer::Default);
}

TEST_F(SiteOpenTest, OnlyDocumentsInsideTheSitesRootAreOpened) {
    pages = {{"http://h/s/i.htm",
              {"http://H/s/a.htm", "http://h/b.htm", "http://h/s/c.gif", "https://h/s/d.htm", "http://h:81/s/e.htm", "http://h/s/f.htm?x=1"}},
             {"http://h/s/f.htm?x=1", {}}};
    site.Command1_Click();
    EXPECT_EQ(opened, (Texts{"http://h/s/i.htm", "http://h/s/f.htm?x=1"}));
}

TEST_F(SiteOpenTest, OnTheFirstPageAHostOfTwoNamesIsTheSitesOwn) {
    pages = {{"http://h/s/i.htm", {"http://h,1.2.3.4/s/a.htm"}}, {"http://h,1.2.3.4/s/a.htm", {"http://h,1.2.3.4/s/b.htm"}}};
    site.Command1_Click();
    EXPECT_EQ(opened, (Texts{"http://h/s/i.htm", "http://h,1.2.3.4/s/a.htm"}));
}

TEST_F(SiteOpenTest, ACancelLeavesWhatIsNeededToGoOn) {
    pages = {{"http://h/s/i.htm", {"http://h/s/a.htm", "http://h/s/b.htm"}},
             {"http://h/s/a.htm", {"http://h/s/c.htm"}},
             {"http://h/s/b.htm", {}},
             {"http://h/s/c.htm", {}}};
    stopAt = "http://h/s/b.htm";
    site.Command1_Click();
    EXPECT_EQ(Bytes("resumes.zdt"), "http://h/s/\r\n 3\r\n 3\r\n");
    EXPECT_EQ(Bytes("resume1.zdt"), "http://h/s/a.htm\r\n\\p\r\nhttp://h/s/b.htm\r\n\\p\r\nhttp://h/s/c.htm\r\n\\p\r\n");
    EXPECT_EQ(Bytes("resume2.zdt"), "http://h/s/i.htm\r\nhttp://h/s/a.htm\r\nhttp://h/s/b.htm\r\n");
    EXPECT_EQ(log.back(),
              "log Site download was stopped by user or by disconnection. Click the 'Open Web Site' button to resume site download.");
    EXPECT_EQ(window.LabelInd.Caption(), "Document 1 of 2");
    stopAt.clear();
    opened.clear();
    log.clear();
    site.Command1_Click();
    EXPECT_EQ(messages, Texts{"Do you want to Resume your last site download?"});
    EXPECT_EQ(opened, (Texts{"http://h/s/b.htm", "http://h/s/c.htm"}));
    EXPECT_EQ(log, Texts{"log "});
    EXPECT_EQ(files.files.count("\\home\\cache\\resumes.zdt"), 0U);
}

TEST_F(SiteOpenTest, ACancelOnTheFirstPageLeavesNothing) {
    stopAt = "http://h/s/i.htm";
    site.Command1_Click();
    EXPECT_EQ(opened.size(), 1U);
    EXPECT_EQ(files.files.count("\\home\\cache\\resumes.zdt"), 0U);
}

TEST_F(SiteOpenTest, NoToTheQuestionBeginsAnewAndCancelDoesNothing) {
    files.files["\\home\\cache\\resumes.zdt"] = "http://h/s/\r\n 0\r\n 0\r\n";
    window.txtFileName.AddItem("http://h/x", 1);
    window.TextFileName.SetText("http://h/x");
    answer = "Cancel";
    site.Command1_Click();
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(window.Pointer(), Pointer::Default);
    answer = "No";
    site.Command1_Click();
    EXPECT_EQ(log.front(), "wizard");
}

TEST_F(SiteOpenTest, AnInvalidAddressIsToldAndTheCommandStillEnds) {
    site.ShowWizard = [this] { session.SiteUrl = "ftp://h/"; };
    site.Command1_Click();
    EXPECT_EQ(messages, Texts{"Please type a valid Web URL first..."});
    EXPECT_TRUE(opened.empty());
    EXPECT_EQ(session.LogText, "Site Download Complete.\r\n\r\n");
}

TEST_F(SiteOpenTest, AnUnattendedRunIsNotAsked) {
    flags.EnterpriseRunning = kSet;
    files.files["\\home\\cache\\resumes.zdt"] = "x";
    window.txtFileName.AddItem("http://h/x", 1);
    window.TextFileName.SetText("nothing");
    site.Command1_Click();
    EXPECT_TRUE(messages.empty());
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(session.LogText, "Please type a valid Web URL first...\r\n\r\nSite Download Complete.\r\n\r\n");
}

TEST_F(SiteOpenTest, ACancelledWizardEndsIt) {
    site.ShowWizard = [this] { session.WizardCancelled = kSet; };
    site.Command1_Click();
    EXPECT_EQ(session.LogText, "");
    EXPECT_TRUE(opened.empty());
}

TEST_F(SiteOpenTest, TheLinksAreCheckedIfTheSettingsWantIt) {
    settings.AutoCheckLinks = kSet;
    pages = {{"http://h/s/i.htm", {}}};
    site.Command1_Click();
    EXPECT_EQ(log, (Texts{"wizard", "new", "check", "log Site Open && Automatic Link Check Complete."}));
    EXPECT_EQ(session.LogText,
              "Opening Web Site... http://h/s/\r\n\r\nSite Open Complete. \r\n\r\nStarting Automatic Link Check...  1 Document "
              "retrieved of a possible 0\r\n\r\nAutomatic Link Check complete.  None of 1 links checked were "
              "questionable.\r\n\r\n");
}

TEST_F(SiteOpenTest, LocalModeHandsOver) {
    settings.ProgramMode = kLocalMode;
    site.Command1_Click();
    EXPECT_EQ(log, Texts{"local"});
}

}  // namespace
}  // namespace qv
