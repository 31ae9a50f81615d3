#include "controls/user_actions.h"
#include "report_world.h"

namespace qv {
namespace {

struct Creation : ReportWorld {
    std::string Create(std::int16_t automatic = 0) {
        std::string error = "left over";
        creation.CreateReports("\\home\\Reports\\", automatic, error);
        return error;
    }
    void TwoDocuments() {
        Document("http://h/a", 1, {{"one", "u1", "404"}});
        Document("http://h.dom/q.asp?x=1 ", 2, {{"two", "u2", "404"}});
    }
    int mails = 0;
    Creation() {
        creation.SendReportsMail = [this](std::int16_t&, std::string& error) {
            ++mails;
            labelAtMail = window.LabelInd.Caption();
            error = mailError;
        };
    }
    std::string mailError;
    std::string labelAtMail;
};

TEST_F(Creation, NamesComeFromTheSite) {
    TwoDocuments();
    settings.SaveTextReport = settings.SaveAsciiReport = settings.SaveHtmlReport = kSet;
    EXPECT_EQ(Create(), "");
    const std::string base = "www_h_test_site_all";
    EXPECT_EQ(session.TextReportNames, std::vector<std::string>{base + "_text.txt"});
    EXPECT_EQ(session.AsciiReportNames, std::vector<std::string>{base + "_ascii.txt"});
    EXPECT_EQ(session.HtmlReportNames, std::vector<std::string>{base + "_html.htm"});
    EXPECT_EQ(session.AttachmentNames, (std::vector<std::string>{base + "_text.txt", base + "_ascii.txt", base + "_html.htm"}));
    EXPECT_EQ(session.AttachmentPaths[1], "\\home\\Reports\\" + base + "_ascii.txt");
    EXPECT_NE(Written(base + "_text.txt").find("Document: http://h.dom/q.asp?x=1\r\n"), std::string::npos);
    EXPECT_EQ(Written(base + "_html.htm").substr(0, 8), "<HTML>\r\n");
    EXPECT_EQ(window.Pointer(), Pointer::Default);
    EXPECT_EQ(mails, 0);
}

TEST_F(Creation, OneDocumentGivesItsOwnName) {
    TwoDocuments();
    settings.SaveTextReport = settings.SaveOneOnly = kSet;
    window.txtFileName.SetListIndex(1);
    Create();
    EXPECT_EQ(session.TextReportNames, std::vector<std::string>{"h_dom_q_asp_x_1_text.txt"});
    EXPECT_EQ(Written("h_dom_q_asp_x_1_text.txt").find("Document: http://h/a"), std::string::npos);
    settings.SaveAllInOne = kSet;  // plays no part
    Create();
    EXPECT_EQ(session.TextReportNames, std::vector<std::string>{"h_dom_q_asp_x_1_text.txt"});
}

TEST_F(Creation, NamesHaveOneSignForEachCharacter) {
    settings.SaveTextReport = settings.SaveOneOnly = kSet;
    Document("http://bücher.test/ä", 1, {});
    Create();
    EXPECT_EQ(session.TextReportNames, std::vector<std::string>{"b_cher_test___text.txt"});
    window.txtFileName.Clear();
    Document("page", 1, {});
    Create();
    EXPECT_EQ(session.TextReportNames, std::vector<std::string>{"page_text.txt"});
}

TEST_F(Creation, AutomaticReportsHaveSwitchesOfTheirOwn) {
    TwoDocuments();
    settings.SaveTextReport = settings.SaveAsciiReport = kSet;
    settings.MakeHtmlReport = kSet;
    Create(1);
    EXPECT_TRUE(session.TextReportNames.empty());
    EXPECT_EQ(session.AttachmentNames, std::vector<std::string>{"www_h_test_site_all_html.htm"});
    settings.SaveOneOnly = kSet;  // from the last dialog
    Create(1);
    EXPECT_EQ(session.AttachmentNames, std::vector<std::string>{"h_a_html.htm"});
}

TEST_F(Creation, WithoutDocumentsOrFormsTheListsAreEmpty) {
    session.TextReportNames = session.AttachmentPaths = session.AttachmentNames = session.HtmlReportNames = {"old"};
    settings.SaveTextReport = kSet;
    Create();
    EXPECT_TRUE(session.TextReportNames.empty() && session.AttachmentPaths.empty() && session.AttachmentNames.empty());
    TwoDocuments();
    settings.SaveTextReport = kClear;
    Create();
    EXPECT_TRUE(session.TextReportNames.empty() && session.HtmlReportNames.empty() && session.AttachmentNames.empty());
}

TEST_F(Creation, AFolderThatCannotBeWrittenStillListsTheNames) {
    TwoDocuments();
    settings.SaveTextReport = kSet;
    files.writesFail = true;
    Create();
    EXPECT_EQ(session.TextReportNames.size(), 1u);
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(creation.NotWritten(), session.AttachmentPaths);
    files.writesFail = false;
    Create();
    EXPECT_TRUE(creation.NotWritten().empty());
}

struct Mailing : Creation {
    Mailing() {
        TwoDocuments();
        settings.MakeTextReport = settings.EmailReports = kSet;
        settings.SaveTextReport = kSet;
        mail.MailServer = "mail.h.test";
        mail.MailFromAddress = "me@h.test";
    }
};

TEST_F(Mailing, IsAskedForAndDoneOnYes) {
    answers = {"Yes"};
    Create(1);
    EXPECT_EQ(messages, std::vector<std::string>{"Reports were created, do you want to Email them now?"});
    EXPECT_EQ(mails, 1);
    EXPECT_EQ(labelAtMail, "Emailing Reports...");
}

TEST_F(Mailing, IsLeftOutOnNo) {
    answers = {"No"};
    EXPECT_EQ(Create(1), "");
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_EQ(mails, 0);
}

TEST_F(Mailing, AsksNothingWhenChecksAreAutomaticAndTellsTheError) {
    settings.AutoCheckLinks = kSet;
    mailError = "refused";
    EXPECT_EQ(Create(1), "refused");
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(mails, 1);
}

TEST_F(Mailing, NeedsEachOfItsConditions) {
    settings.AutoCheckLinks = kSet;
    const auto without = [&](auto change) {
        const auto keptSettings = settings;
        const auto keptMail = mail;
        change();
        EXPECT_EQ(Create(1), "");
        settings = keptSettings;
        mail = keptMail;
        EXPECT_EQ(mails, 0);
    };
    without([&] { settings.EmailReports = kClear; });
    without([&] { settings.MakeTextReport = kClear; });
    without([&] { mail.MailServer = "   "; });
    without([&] { mail.MailFromAddress = " "; });
    EXPECT_EQ(Create(0), "");  // from the dialog there is no mail
    EXPECT_EQ(mails, 0);
    Create(1);
    EXPECT_EQ(mails, 1);
}

struct SaveCommand : Creation {
    std::vector<std::string> order;
    SaveCommand() {
        TwoDocuments();
        settings.SaveTextReport = kSet;
        creation.ShowDialog = [this] {
            order.push_back("dialog");
            return okay;
        };
        creation.ShowViewer = [this] {
            order.push_back("viewer " + std::to_string(session.ViewerFolderChoice));
            EXPECT_EQ(session.TextReportNames.size(), 1u);
            EXPECT_TRUE(window.List1.Enabled());
        };
    }
    bool okay = true;
};

TEST_F(SaveCommand, OkayWritesAndShows) {
    window.ComStart.SetEnabled(true);
    window.txtFileName.SetFocus();
    loop.Post([&] {
        order.push_back("writing");
        EXPECT_FALSE(window.List1.Enabled());
        EXPECT_FALSE(window.txtFileName.Enabled());
        EXPECT_FALSE(window.MenuFile.Enabled());
    });
    creation.MenuReportsSave_Click();
    EXPECT_EQ(order, (std::vector<std::string>{"dialog", "writing", "viewer 1"}));
    EXPECT_TRUE(window.txtFileName.HasFocus());
}

TEST_F(SaveCommand, CancelDoesNothing) {
    okay = false;
    creation.MenuReportsSave_Click();
    EXPECT_EQ(order, std::vector<std::string>{"dialog"});
    EXPECT_EQ(Written("www_h_test_site_all_text.txt"), "(none)");
}

TEST(ReportOptions, SevenLines) {
    Settings s;
    s.SaveTextReport = s.SaveHtmlReport = s.SaveOneOnly = kSet;
    s.QuestionableOnly = 1;
    s.ReportFolder = "\\r\\";
    const std::string bytes = "-1\r\n 0\r\n-1\r\n 0\r\n-1\r\n 1\r\n\\r\\\r\n";
    EXPECT_EQ(ComposeReportOptions(s), bytes);
    Settings read;
    ParseReportOptions(bytes, read);
    EXPECT_EQ(ComposeReportOptions(read), bytes);
}

TEST(ReportOptions, ShortAndStrangeFilesLeaveWhatTheyDoNotTell) {
    Settings s;
    s.SaveAsciiReport = s.SaveHtmlReport = kSet;
    s.ReportFolder = "\\kept\\";
    ParseReportOptions("-1\r\nx\r\n", s);
    EXPECT_EQ(s.SaveTextReport, kSet);
    EXPECT_EQ(s.SaveAsciiReport, 0);
    EXPECT_EQ(s.SaveHtmlReport, kSet);
    EXPECT_EQ(s.ReportFolder, "\\kept\\");
    FakeFiles files;
    EXPECT_FALSE(ReadReportOptions(files, "\\home\\", s));
}

struct Dialog : ReportWorld {
    frmform form{{windows, files, session, settings}};
    // Opens the dialog; `user` does something in it and has to close it.
    void Open(const std::function<void()>& user) {
        shown = [user](Form&) { user(); };
        windows.ShowModal(form);
    }
    std::string File() { return files.files["\\home\\reprtcfg.zdt"]; }
};

TEST_F(Dialog, ShowsTheFileAndBeginsInTheFolder) {
    files.files["\\home\\reprtcfg.zdt"] = "-1\r\n 0\r\n-1\r\n-1\r\n 0\r\n-1\r\n\\home\\Logs\\\r\n";
    Open([&] {
        EXPECT_TRUE(form.CheckText.Checked() && form.CheckHTML.Checked() && form.CheckAllInOne.Checked() && form.CheckWhich.Checked());
        EXPECT_FALSE(form.CheckAscii.Checked() || form.CheckOneOnly.Checked());
        EXPECT_FALSE(form.CheckOneOnly.Enabled());
        EXPECT_EQ(form.txtFileName.Text(), "\\home\\Logs\\");
        EXPECT_TRUE(form.txtFileName.HasFocus());
        EXPECT_EQ(form.txtFileName.Selected(), "\\home\\Logs\\");
        form.CheckText.SetFocus();
        windows.Activate(form);  // only the first time takes the focus
        EXPECT_TRUE(form.CheckText.HasFocus());
        form.cmdOK.Click();
    });
    EXPECT_TRUE(form.Okay());
    EXPECT_EQ(File(), "-1\r\n 0\r\n-1\r\n-1\r\n 0\r\n-1\r\n\\home\\Logs\\\r\n");
}

TEST_F(Dialog, TheTwoScopesExcludeEachOther) {
    Open([&] {
        user::Click(form.CheckAllInOne);
        EXPECT_FALSE(form.CheckOneOnly.Enabled());
        user::Click(form.CheckAllInOne);
        EXPECT_TRUE(form.CheckOneOnly.Enabled());
        user::Click(form.CheckOneOnly);
        EXPECT_FALSE(form.CheckAllInOne.Enabled());
        form.CheckAllInOne.SetValue(1);
        EXPECT_FALSE(form.CheckOneOnly.Checked());
        EXPECT_TRUE(form.CheckAllInOne.Enabled());
        form.cmdCancel.Click();
    });
}

TEST_F(Dialog, AFolderThatIsNotThereBecomesTheUsualOne) {
    settings.ReportFolder = "\\gone\\";
    Open([&] {
        EXPECT_EQ(form.txtFileName.Text(), "\\home\\Reports\\");
        form.txtFileName.SetText("\\gone\\too");
        form.cmdOK.Click();
    });
    EXPECT_EQ(settings.ReportFolder, "\\home\\Reports\\");
    EXPECT_TRUE(messages.empty());
}

TEST_F(Dialog, ATypedFolderMayLackItsEndAndHaveSlashes) {
    Open([&] {
        form.txtFileName.SetText("  /home/Logs ");
        form.cmdOK.Click();
    });
    EXPECT_EQ(settings.ReportFolder, "\\home\\Logs\\");
}

TEST_F(Dialog, CancelKeepsWhatWasRead) {
    files.files["\\home\\reprtcfg.zdt"] = "-1\r\n-1\r\n 0\r\n 0\r\n 0\r\n 0\r\n\\home\\Reports\\\r\n";
    settings.QuestionableOnly = kSet;
    Open([&] {
        form.CheckHTML.SetValue(1);
        form.CheckText.SetValue(0);
        form.cmdCancel.Click();
    });
    EXPECT_FALSE(form.Okay());
    EXPECT_EQ(form.txtFileName.Text(), "");
    EXPECT_EQ(settings.SaveTextReport, kSet);
    EXPECT_EQ(settings.SaveHtmlReport, kClear);
    EXPECT_EQ(settings.QuestionableOnly, kClear);
    EXPECT_EQ(files.writes.size(), 0u);
}

TEST_F(Dialog, AFolderCanBeLookedFor) {
    Open([&] {
        form.txtFileName.SetText("typed");
        form.ComBrowse.Click();
        EXPECT_EQ(form.txtFileName.Text(), "typed");
        EXPECT_EQ(dialog.title, "Locate Folder for Reports...");
        EXPECT_EQ(dialog.filter, "Folders (*.)|*.");
        EXPECT_EQ(dialog.name, "*.");
        EXPECT_EQ(dialog.folder, "\\home\\Reports\\");
        chosenFolder = "\\home\\Logs\\*.";
        form.ComBrowse.Click();
        EXPECT_EQ(form.txtFileName.Text(), "\\home\\Logs\\");
        form.Close();
    });
    EXPECT_FALSE(form.Okay());
}

}  // namespace
}  // namespace qv
