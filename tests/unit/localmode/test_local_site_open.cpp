#include <gtest/gtest.h>

#include <map>

#include "fakes/fake_clock.h"
#include "fakes/fake_files.h"
#include "fakes/fake_http1.h"
#include "fakes/fake_ip_info1.h"
#include "fakes/fake_loop.h"
#include "localmode/local_site_open.h"

namespace qv {
namespace {

using Texts = std::vector<std::string>;

class NoPrograms : public Programs {
   public:
    bool Exists(const std::string&) const override { return false; }
    bool Start(const std::string&, const std::vector<std::string>&) override { return false; }
    bool OpenWithDesktop(const std::string&) override { return false; }
};

// The walk over a mirror that is told as documents with their links. The site's address is http://h/s/, its folder \w\.
struct LocalSiteOpenTest : testing::Test, WindowListener {
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
    LocalSiteOpen site{{window, rules, session, settings, flags, store, http, steps, loop, files}};
    std::map<std::string, Texts> documents;  // links by name; each link leads to a name
    Texts opened, messages, log, labels;
    std::string answer = "Yes";
    std::string stopAt;

    void SetUp() override {
        windows.Listen(this);
        session.AppPath = "\\home\\";
        settings.ProgramMode = kLocalMode;
        settings.DocumentTypes = " .htm ";
        window.SetVisible(true);
        site.ShowWizard = [this] {
            log.push_back("wizard");
            session.SiteUrl = "http://h/s/";
            session.SiteFileName = "i.htm";
            session.SiteFolder = "\\w\\";
        };
        site.MenuFileNew_Click = [this] {
            log.push_back("new");
            window.TextFileName.SetText("");
            window.txtFileName.Clear();
        };
        site.OpenLocalDocument = [this](const std::string& path, const std::string& url) { Open(path, url); };
        site.ComStart_Click = [this] { log.push_back("check"); };
        site.txtFileName_Click = [] {};
        site.ShowReportForm = [this] {
            log.push_back("log " + session.LogTitle);
            session.LogTitle.clear();  // as the window does
        };
        site.UnloadReportForm = [] {};
    }
    void Open(const std::string& path, const std::string& url) {
        labels.push_back(window.LabelInd.Caption());
        opened.push_back(url + " " + path);
        http.SetURL(url);
        const std::string name = url.substr(url.rfind('/') + 1);
        if (name == stopAt) {
            site.OpenLocalWebSite();
            return;
        }
        session.Links.Clear();
        for (const auto& link : documents[name]) session.Links.Add("x", "http://h/s/" + link, {}, "\\w\\" + link);
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
};

TEST_F(LocalSiteOpenTest, AlongTheLinksEachDocumentIsOpenedOnce) {
    documents = {{"i.htm", {"a.htm", "b.gif", "a.htm"}}, {"a.htm", {"c.htm", "i.htm"}}};
    site.OpenLocalWebSite();
    EXPECT_EQ(opened, (Texts{"http://h/s/i.htm \\w\\i.htm", "http://h/s/a.htm \\w\\a.htm", "http://h/s/c.htm \\w\\c.htm"}));
    EXPECT_EQ(labels, (Texts{"", " 1 Document(s) opened of a possible 1", " 2 Documents opened of a possible 3"}));
    EXPECT_EQ(log, (Texts{"wizard", "new", "log Site Open Complete. Click 'Check Links' to begin checking links."}));
    EXPECT_EQ(session.LogText, "Opening Web Site... http://h/s/\r\n\r\nSite Open Complete.");
    EXPECT_EQ(window.LabelInd.Caption(), "Document 1 of 3");
    EXPECT_TRUE(window.List1.Enabled());
    EXPECT_EQ(flags.SiteOpenRunning, 0);
}

TEST_F(LocalSiteOpenTest, AFolderIsOpenedWholeAndItsLinksAreNotFollowed) {
    settings.SiteOpenMode = 2;
    for (const char* path : {"\\w\\i.htm", "\\w\\z.htm", "\\w\\sub\\a.htm"}) files.files[path] = "";
    documents = {{"i.htm", {"elsewhere.htm"}}};
    site.OpenLocalWebSite();
    EXPECT_EQ(opened, (Texts{"http://h/s/i.htm \\w\\i.htm", "http://h/s/i.htm \\w\\i.htm", "http://h/s/z.htm \\w\\z.htm",
                             "http://h/s/sub/a.htm \\w\\sub\\a.htm"}));
    EXPECT_EQ(labels[1], "Scanning folders, please wait...");
    EXPECT_EQ(labels.back(), " 3 Documents opened of  3");
}

TEST_F(LocalSiteOpenTest, AFolderThatCannotBeReadIsTold) {
    settings.SiteOpenMode = 1;
    files.unreadable.insert("\\w");
    site.OpenLocalWebSite();
    EXPECT_EQ(messages, Texts{"Sorry, There Was An Error Reading The Disk Drive."});
    messages.clear();
    flags.EnterpriseRunning = kSet;
    site.ShowWizard();
    window.TextFileName.SetText("http://h/s/i.htm");
    site.OpenLocalWebSite();
    EXPECT_TRUE(messages.empty());
    EXPECT_NE(session.LogText.find("Error Reading The Disk Drive"), std::string::npos);
}

TEST_F(LocalSiteOpenTest, APressStopsAndTheNextOneGoesOnOnce) {
    documents = {{"i.htm", {"a.htm", "b.htm"}}, {"a.htm", {"c.htm"}}};
    stopAt = "b.htm";
    site.OpenLocalWebSite();
    EXPECT_EQ(files.files["\\home\\cache\\resumes.zdt"], "http://h/s/\r\n 3\r\n 3\r\n");
    EXPECT_EQ(log.back(), "log Site open was stopped by user or by an error. Click the 'Open Local Web Site' button to resume.");
    stopAt.clear();
    opened.clear();
    site.OpenLocalWebSite();
    EXPECT_EQ(messages, Texts{"Do you want to Resume loading your last local site?"});
    EXPECT_EQ(opened, (Texts{"http://h/s/b.htm \\w\\b.htm", "http://h/s/c.htm \\w\\c.htm"}));
    EXPECT_EQ(files.files.count("\\home\\cache\\resume1.zdt"), 0U);
}

TEST_F(LocalSiteOpenTest, TheQuestionNeedsADocumentAndAnAddress) {
    files.files["\\home\\cache\\resumes.zdt"] = "http://h/s/\r\n 0\r\n 0\r\n";
    site.OpenLocalWebSite();
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(log.front(), "wizard");
}

TEST_F(LocalSiteOpenTest, AnAddressThatIsNoneEndsItSilently) {
    site.ShowWizard = [this] { session.SiteUrl = "file:/x/"; };
    site.OpenLocalWebSite();
    EXPECT_TRUE(opened.empty());
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(session.LogText, "Site Open Complete.");
    EXPECT_TRUE(window.List1.Enabled());
}

TEST_F(LocalSiteOpenTest, TheLinksAreCheckedIfTheSettingsWantIt) {
    settings.AutoCheckLinks = kSet;
    site.OpenLocalWebSite();
    EXPECT_EQ(log, (Texts{"wizard", "new", "check", "log Site Open && Automatic Link Check Complete."}));
    EXPECT_NE(session.LogText.find("Site Open Complete.\r\n\r\nStarting automatic Link Check... "), std::string::npos);
}

}  // namespace
}  // namespace qv
