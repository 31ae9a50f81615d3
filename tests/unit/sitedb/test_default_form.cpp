#include <gtest/gtest.h>

#include "controls/user_actions.h"
#include "controls/window_system.h"
#include "fakes/fake_files.h"
#include "fakes/fake_programs.h"
#include "sitedb/default_form.h"

namespace qv {
namespace {

struct Defaults : testing::Test, WindowListener {
    FakeFiles files;
    FakePrograms programs;
    Session session;
    Settings settings;
    RunFlags flags;
    MailSettings mail;
    WindowSystem windows{[this] {
        if (user) user();
    }};
    Form main{windows, "CheckForm", ""};
    ListBox documents{main, "txtFileName", ListBox::SelectionKind::Single};
    Preferences preferences{files, session, settings};
    std::function<void()> user;
    std::vector<std::string> messages;
    std::optional<std::string> chosen;
    FileDialogRequest dialog;
    int told = 0;

    Defaults() {
        session.AppPath = "\\home\\";
        session.WindowsFolder = "\\usr\\bin\\";
        settings.EditorPath = settings.SourceViewerPath = "\\bin\\e";
        windows.Listen(this);
        preferences.ReadAtStart();
    }
    void FormShown(Form&) override {}
    void FormClosed(const Form&) override {}
    void MessageShown(const MessageRequest& request) override {
        messages.push_back(request.text);
        windows.Answer("OK");
    }
    void DialogShown(const FileDialogRequest& request) override {
        dialog = request;
        windows.Answer(chosen);
    }
    void Beeped() override {}

    void Open(const std::function<void(DefaultForm&)>& work) {
        DefaultForm form({windows, files, programs, session, settings, flags, mail, preferences, main, documents});
        form.SettingsChanged = [this] { ++told; };
        user = [&] {
            work(form);
            form.ComCloseCancel.Click();
        };
        windows.ShowModal(form);
        user = nullptr;
    }
    SiteRecord Stored() { return SiteRecord(files.files["\\home\\preferen.zdt"]); }
    void Store(const std::function<void(SiteRecord&)>& change) {
        SiteRecord record = Stored();
        change(record);
        files.files["\\home\\preferen.zdt"] = record.Bytes();
    }
};

TEST_F(Defaults, ShowsTheRecordAndOkayStoresIt) {
    Open([&](DefaultForm& form) {
        EXPECT_EQ(form.TabStrip1.Value(), 1);
        EXPECT_TRUE(form.Page1.Visible());
        EXPECT_FALSE(form.Page2.Visible() || form.Page3.Visible() || form.Page4.Visible());
        EXPECT_EQ(form.Text5.Text(), kDefaultDocumentTypes);
        EXPECT_EQ(form.Text8.Text(), "60");
        EXPECT_EQ(form.Check1.Value() + form.Check2.Value() + form.Check3.Value(), 3);
        EXPECT_TRUE(form.Text9.Enabled());
        EXPECT_FALSE(form.TextServer.Enabled() || form.Label17.Enabled() || form.TextUserName.Enabled());
        EXPECT_EQ(form.TextReportPath.Text(), "\\home\\Reports\\");
        form.Text5.SetText(" .htm .x");
        form.Text8.SetText("4");
        form.Check1.SetValue(0);
        form.TextUserAgent.SetText(" Agent/1 ");
        form.Check13.SetValue(1);
        form.ComOpenNext.Click();
        EXPECT_FALSE(form.Loaded());
    });
    EXPECT_EQ(Stored().Text(field::DocumentTypes), ".htm .x");
    EXPECT_EQ(Stored().RawText(field::DocumentTypes).substr(0, 10), " .htm .x  ");
    EXPECT_EQ(Stored().Number(field::HttpTimeout), 60);
    EXPECT_EQ(Stored().Number(field::IncludeImages), 0);
    EXPECT_EQ(Stored().Number(field::FollowRedirects), kSet);
    EXPECT_EQ(Stored().Text(field::UserAgent), "Agent/1");
    EXPECT_EQ(Stored().Number(field::MakeTextReport), kSet);
    EXPECT_EQ(preferences.Record().Text(field::UserAgent), "Agent/1");
    EXPECT_TRUE(files.FileExists("\\home\\quorvant.cfg"));
    EXPECT_EQ(told, 1);
}

TEST_F(Defaults, CancelStoresNothing) {
    const std::string before = files.files["\\home\\preferen.zdt"];
    session.WizardFromList = kSet;
    session.WizardListIndex = 1;
    documents.AddItem("a");
    documents.AddItem("b");
    Open([&](DefaultForm& form) {
        form.Text5.SetText("x");
        form.CheckAuto.SetValue(1);
    });
    EXPECT_EQ(files.files["\\home\\preferen.zdt"], before);
    EXPECT_EQ(settings.AutoCheckLinks, kClear);
    EXPECT_EQ(session.WizardCancelled, kSet);
    EXPECT_EQ(documents.ListIndex(), 1);
    EXPECT_FALSE(files.FileExists("\\home\\quorvant.cfg"));
}

TEST_F(Defaults, TheFileIsReadEachTime) {
    Store([](SiteRecord& record) { record.SetText(field::UserAgent, "Later"); });
    Open([&](DefaultForm& form) { EXPECT_EQ(form.TextUserAgent.Text(), "Later"); });
    EXPECT_EQ(preferences.Record().Text(field::UserAgent), "");
}

TEST_F(Defaults, TheChecksAreInTheirOrderWhateverTabIsShown) {
    Open([&](DefaultForm& form) {
        form.Text8.SetText("7");
        form.CheckAuth.SetValue(1);
        form.Check5.SetValue(1);
        form.Check6.SetValue(1);
        form.Text9.SetText(" ");
        form.TabStrip1.ClickTab(2);
        const auto refused = [&] {
            messages.clear();
            form.ComOpenNext.Click();
            EXPECT_TRUE(form.Loaded());
            return messages.empty() ? "" : messages[0];
        };
        EXPECT_EQ(refused(), "Proxy Server Name and Port Number are required.");
        form.TextServer.SetText("p");
        form.TextPort.SetText("0");
        EXPECT_EQ(refused(), "Proxy Server Name and Port Number are required.");
        form.TextPort.SetText("8080");
        EXPECT_EQ(refused(), "Valid User Name and Password are required.");
        form.TextUserName.SetText("u");
        form.TextPassword.SetText("w");
        EXPECT_EQ(refused(), "Valid FTP User Name and Password are required.");
        form.Text9.SetText("f");
        EXPECT_EQ(refused(), "Invalid Authentication User Name.");
        form.TextAuthName.SetText("n");
        EXPECT_EQ(refused(), "Invalid Authentication Password.");
        EXPECT_FALSE(files.FileExists("\\home\\emailcfg.zdt"));
        form.TextAuthPassword.SetText(" s ");  // blanks belong to it
        form.ComOpenNext.Click();
    });
    EXPECT_EQ(Stored().Number(field::HttpTimeout), 7);
    EXPECT_EQ(Stored().Text(field::ProxyPortText), "8080");
    EXPECT_EQ(Stored().Text(field::HttpUserName), "u");
    EXPECT_EQ(mail.MailAuthRequired, "Yes");
    EXPECT_NE(files.files["\\home\\emailcfg.zdt"].find("n\r\n s \r\nYes\r\n\r\n\r\n"), std::string::npos);
}

TEST_F(Defaults, ARefusalKeepsTheTab) {
    Open([&](DefaultForm& form) {
        form.TabStrip1.ClickTab(3);
        user::Click(form.Check6);
        EXPECT_TRUE(form.TextServer.HasFocus());
        form.TabStrip1.ClickTab(1);
        EXPECT_EQ(form.TabStrip1.Value(), 3);
        EXPECT_TRUE(form.Page3.Visible());
        user::Click(form.Check6);
        EXPECT_FALSE(form.TextServer.Enabled());
        form.TabStrip1.ClickTab(4);
        EXPECT_TRUE(form.Page4.Visible());
        form.TextMailServer.SetText(" server ");
        form.TabStrip1.ClickTab(1);
    });
    EXPECT_EQ(mail.MailServer, "server");  // written when the tab was left, in spite of the Cancel
    EXPECT_EQ(files.files["\\home\\emailcfg.zdt"].substr(0, 8), "server\r\n");
}

TEST_F(Defaults, AGroupThatIsOffKeepsItsTexts) {
    Store([](SiteRecord& record) {
        record.SetNumber(field::UseProxy, kSet);
        record.SetText(field::ProxyServerName, "proxy");
        record.SetText(field::ProxyPortText, "81");
    });
    Open([&](DefaultForm& form) {
        EXPECT_EQ(form.TextServer.Text(), "proxy");
        form.Check6.SetValue(0);
        form.ComOpenNext.Click();
    });
    EXPECT_EQ(Stored().Number(field::UseProxy), 0);
    EXPECT_EQ(Stored().Text(field::ProxyServerName), "proxy");
    Open([&](DefaultForm& form) { EXPECT_EQ(form.TextServer.Text(), ""); });
}

TEST_F(Defaults, HelpersThatAreNotThereBecomeTheSystems) {
    programs.missing = {"\\none\\e", "\\none\\v", "\\none\\b"};
    Open([&](DefaultForm& form) {
        form.Text1.SetText(" /none/b ");
        form.Text3.SetText("\\none\\e");
        form.Text2.SetText("\\bin\\v");
        form.Check7.SetValue(0);
        form.ComOpenNext.Click();
    });
    EXPECT_EQ(settings.BrowserPath, "\\none\\b");
    EXPECT_EQ(settings.EditorPath, "\\usr\\bin\\notepad.exe");
    EXPECT_EQ(settings.SourceViewerPath, "\\bin\\v");
    EXPECT_EQ(settings.ShowToolHints, kClear);
}

TEST_F(Defaults, ABrowseIsStoredAtOnce) {
    Open([&](DefaultForm& form) {
        form.Command6.Click();
        EXPECT_EQ(dialog.title, "Locate Web Browser...");
        EXPECT_EQ(dialog.filter, "Program Files (*.exe)|*.exe");
        EXPECT_EQ(settings.BrowserPath, "");
        chosen = "\\bin\\b";
        form.Command6.Click();
        form.ComBrowse.Click();
        EXPECT_EQ(dialog.title, "Locate HTML Editor...");
        form.Command2.Click();
        EXPECT_EQ(dialog.title, "Locate HTML Source Viewer...");
        EXPECT_EQ(form.Text1.Text() + form.Text3.Text() + form.Text2.Text(), "\\bin\\b\\bin\\b\\bin\\b");
        chosen = "\\r\\x.txt";
        form.Command9.Click();
        EXPECT_EQ(dialog.title, "Locate Folder for Reports...");
        EXPECT_EQ(dialog.folder, "\\home\\Reports\\");
        EXPECT_EQ(form.TextReportPath.Text(), "\\r\\");
    });
    EXPECT_EQ(settings.BrowserPath, "\\bin\\b");
    EXPECT_EQ(settings.EditorPath, "\\bin\\b");
}

TEST_F(Defaults, TextsAreAddedAndDeleted) {
    Open([&](DefaultForm& form) {
        for (int i = 1; i <= 10; ++i) {
            form.ComboTextIgnore.SetText("t" + std::to_string(i));
            form.Command3.Click();
        }
        EXPECT_EQ(form.ComboTextIgnore.Text(), "");
        form.Command3.Click();
        EXPECT_TRUE(messages.empty());
        form.ComboTextIgnore.SetText("more");
        form.Command3.Click();
        EXPECT_EQ(messages, std::vector<std::string>{"Only 10 text strings are allowed. Delete an existing string to add another."});
        form.ComboTextIgnore.SetText("T2");
        form.Command5.Click();
        EXPECT_EQ(form.ComboTextIgnore.Count(), 10);
        form.ComboTextIgnore.SetText("t2");
        form.Command5.Click();
        EXPECT_EQ(form.ComboTextIgnore.Text(), "t1");
        form.ComOpenNext.Click();
    });
    EXPECT_EQ(Stored().Text(field::IgnoreText(2)), "t3");
    EXPECT_EQ(Stored().Text(field::IgnoreText(10)), "");
    EXPECT_EQ(messages.size(), 1u);
}

TEST_F(Defaults, ResetSetsTheFormAndNotTheFile) {
    Store([](SiteRecord& record) {
        record.SetText(field::DocumentTypes, " .x ");
        record.SetText(field::IgnoreText(1), "t");
        record.SetNumber(field::HttpTimeout, 9);
        record.SetNumber(field::FtpTimeout, 9);
        record.SetNumber(field::UseProxy, kSet);
        record.SetText(field::ProxyServerName, "p");
        record.SetText(field::UserAgent, "a");
        record.SetNumber(field::MakeTextReport, kSet);
    });
    const std::string before = files.files["\\home\\preferen.zdt"];
    Open([&](DefaultForm& form) {
        form.Command1.Click();
        EXPECT_EQ(form.Text5.Text(), kDefaultDocumentTypes);
        EXPECT_EQ(form.ComboTextIgnore.Count(), 0);
        EXPECT_EQ(form.Text8.Text(), "60");
        EXPECT_FALSE(form.Check6.Checked());
        EXPECT_EQ(form.TextUserAgent.Text(), "");
        EXPECT_EQ(form.Text9.Text(), kDefaultFtpUserName);
        EXPECT_EQ(files.files["\\home\\preferen.zdt"], before);
        form.ComOpenNext.Click();
    });
    EXPECT_EQ(Stored().Number(field::FtpTimeout), 9);
    EXPECT_EQ(Stored().Number(field::MakeTextReport), kSet);
    EXPECT_EQ(Stored().Text(field::ProxyServerName), "");
    EXPECT_EQ(Stored().Number(field::UseProxy), 0);
    EXPECT_EQ(Stored().Text(field::FormatVersion), "Quorvantis 5.0");
}

TEST_F(Defaults, ARecordFromBeforeTheReportsIsRepaired) {
    settings.ReportFolder = "\\in force\\";
    Store([](SiteRecord& record) {
        record.SetText(field::ReportFolder, "");
        record.SetNumber(field::MakeTextReport, 77);
    });
    Open([&](DefaultForm& form) { EXPECT_EQ(form.TextReportPath.Text(), "\\in force\\"); });
}

}  // namespace
}  // namespace qv
