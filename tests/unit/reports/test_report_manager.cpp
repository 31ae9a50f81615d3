#include "controls/user_actions.h"
#include "report_world.h"

namespace qv {
namespace {

constexpr const char* kNoMail =
    "Before you select this option, you must enter your Email information in Quorvantis Preferences (Under the 'Edit' Menu).";

std::vector<std::string> Rows(const ListBox& list) {
    std::vector<std::string> rows;
    for (int row = 0; row < list.Count(); ++row) rows.push_back(list.Text(row));
    return rows;
}

std::vector<int> Selected(const ListBox& list) {
    std::vector<int> rows;
    for (int row = 0; row < list.Count(); ++row)
        if (list.Selected(row)) rows.push_back(row);
    return rows;
}

struct Manager : ReportWorld {
    int emailers = 0;
    Manager() {
        reports.ShowEmailForm = [this] { ++emailers; };
    }
    void File(const std::string& name, const std::string& folder = "Reports") { files.files["\\home\\" + folder + "\\" + name] = "x"; }
    void Open(const std::function<void(ReportManagerForm&)>& user, std::int16_t logs = 0) {
        session.ManagerShowsLogs = logs;
        ReportManagerForm form({windows, files, session, flags, reports});
        shown = [&](Form&) {
            user(form);
            form.Close();
        };
        windows.ShowModal(form);
        EXPECT_EQ(flags.IgnoreControlEvents, kClear);
    }
    static bool Usable(const ReportManagerForm& form) {
        EXPECT_EQ(form.ComShow.Enabled(), form.ComEmail.Enabled());
        EXPECT_EQ(form.ComShow.Enabled(), form.Command1.Enabled());
        return form.ComShow.Enabled();
    }
};

TEST_F(Manager, ListsTextsThenAsciisThenPagesInLowerCase) {
    for (const char* name : {"b_html.htm", "A_Text.TXT", "c_ascii.txt", "a_text.txt", "other.txt", "x_log.txt"}) File(name);
    Open([&](ReportManagerForm& form) {
        EXPECT_EQ(form.LabelPath.Caption(), "\\home\\Reports\\");
        EXPECT_EQ(Rows(form.List1), (std::vector<std::string>{"a_text.txt", "a_text.txt", "c_ascii.txt", "b_html.htm"}));
        EXPECT_TRUE(form.AllReports.Value());
        EXPECT_EQ(form.List1.ListIndex(), 0);
        EXPECT_EQ(Selected(form.List1), std::vector<int>{0});
        EXPECT_TRUE(Usable(form));
        EXPECT_EQ(session.ReportListKind, 3);
        user::Click(form.AsciiReports);
        EXPECT_EQ(Rows(form.List1), std::vector<std::string>{"c_ascii.txt"});
        EXPECT_FALSE(form.AllReports.Value());
        EXPECT_EQ(session.ReportListKind, 1);
        user::Click(form.HtmlReports);
        EXPECT_EQ(Selected(form.List1), std::vector<int>{0});
    });
    EXPECT_EQ(session.TextReportNames.size(), 2u);
}

TEST_F(Manager, AnEmptyFolderLeavesNothingToDo) {
    Open([&](ReportManagerForm& form) {
        EXPECT_FALSE(Usable(form));
        form.List1.DblClick();
        EXPECT_EQ(messages, std::vector<std::string>{"Please select a File Name first."});
        form.Command1.Click();
        EXPECT_EQ(messages.size(), 2u);
    });
}

TEST_F(Manager, TheButtonsFollowTheCurrentRow) {
    File("a_text.txt");
    File("b_text.txt");
    Open([&](ReportManagerForm& form) {
        form.List1.SetListIndex(-1);
        EXPECT_FALSE(Usable(form));
        form.List1.ClickRow(1);
        EXPECT_TRUE(Usable(form));
        user::Click(form.AsciiReports);
        EXPECT_FALSE(Usable(form));
        user::Click(form.TextReports);
        EXPECT_TRUE(Usable(form));
    });
}

TEST_F(Manager, ShowsAFileInTheProgramOfItsKind) {
    for (const char* name : {"A one_text.txt", "b_ascii.txt", "C_html.htm", "d_html.html"}) File(name);
    settings.BrowserPath = "\\bin\\browser";
    Open([&](ReportManagerForm& form) {
        const auto show = [&](OptionButton& kind, int row) {
            programs.started.clear();
            kind.SetValue(true);
            form.List1.ClickRow(row);
            form.ComShow.Click();
            return programs.started;
        };
        const std::vector<std::string> viewer = {"\\bin\\viewer", "/home/Reports/A one_text.txt"};
        EXPECT_EQ(show(form.TextReports, 0), viewer);
        EXPECT_EQ(show(form.AllReports, 0), viewer);
        EXPECT_EQ(show(form.AsciiReports, 0)[1], "/home/Reports/b_ascii.txt");
        const std::vector<std::string> inBrowser = {"\\bin\\browser", "file:///home/Reports/C_html.htm"};
        EXPECT_EQ(show(form.HtmlReports, 0), inBrowser);
        EXPECT_EQ(show(form.AllReports, 2), inBrowser);
        EXPECT_EQ(show(form.HtmlReports, 1)[0], "\\bin\\browser");
        EXPECT_EQ(show(form.AllReports, 3)[0], "\\bin\\viewer");  // the name doesn't end in ".htm"
    });
}

TEST_F(Manager, TheBrowserGetsOneEncodedAddress) {
    files.folders.insert("\\home\\my 'best' $1;x");
    files.files["\\home\\my 'best' $1;x\\a b_html.htm"] = "x";
    chosenFolder = "\\home\\my 'best' $1;x\\*.";
    Open([&](ReportManagerForm& form) {
        form.ComBrowse.Click();
        form.ComShow.Click();
    });
    EXPECT_EQ(programs.opened, std::vector<std::string>{"file:///home/my%20%27best%27%20%241%3Bx/a%20b_html.htm"});
    EXPECT_TRUE(programs.started.empty());
}

TEST_F(Manager, ADoubleClickShows) {
    File("a_text.txt");
    File("b_text.txt");
    Open([&](ReportManagerForm& form) { form.List1.DoubleClickRow(1); });
    EXPECT_EQ(programs.started.back(), "/home/Reports/b_text.txt");
}

TEST_F(Manager, DeletesTheSelectedFilesWhateverTheirCase) {
    for (const char* name : {"A_text.txt", "a_text.txt", "b_text.txt", "c_html.htm"}) File(name);
    answers = {"No", "Yes"};
    Open([&](ReportManagerForm& form) {
        form.List1.ClickRow(1);
        form.List1.ClickRow(0);  // takes the first one out again
        form.List1.ClickRow(3);
        form.Command1.Click();
        EXPECT_EQ(messages, std::vector<std::string>{"Are you sure you want to delete the selected items?"});
        EXPECT_EQ(form.List1.Count(), 4);
        form.Command1.Click();
        EXPECT_EQ(Rows(form.List1), (std::vector<std::string>{"a_text.txt", "b_text.txt"}));
        EXPECT_EQ(Selected(form.List1), std::vector<int>{0});
        EXPECT_TRUE(form.AllReports.Value());
    });
    EXPECT_TRUE(files.FileExists("\\home\\Reports\\A_text.txt"));
    EXPECT_FALSE(files.FileExists("\\home\\Reports\\a_text.txt"));
}

TEST_F(Manager, ADeleteInOneKindShowsAllAgain) {
    File("a_text.txt");
    File("b_ascii.txt");
    answers = {"Yes"};
    Open([&](ReportManagerForm& form) {
        user::Click(form.AsciiReports);
        form.Command1.Click();
        EXPECT_TRUE(form.AllReports.Value());
        EXPECT_EQ(Rows(form.List1), std::vector<std::string>{"a_text.txt"});
    });
}

TEST_F(Manager, AnotherFolderShowsAllOfIt) {
    File("a_text.txt");
    File("z_ascii.txt", "Logs");
    File("y_text.txt", "Logs");
    Open([&](ReportManagerForm& form) {
        user::Click(form.TextReports);
        form.ComBrowse.Click();  // cancelled
        EXPECT_TRUE(form.TextReports.Value());
        EXPECT_EQ(form.LabelPath.Caption(), "\\home\\Reports\\");
        EXPECT_EQ(dialog.title, "Select Folder...");
        EXPECT_EQ(dialog.filter, "Folders (*.)|*.");
        EXPECT_EQ(dialog.name, "*.");
        EXPECT_EQ(dialog.folder, "\\home\\Reports\\");
        chosenFolder = "\\home\\Logs\\some.file";
        form.ComBrowse.Click();
        EXPECT_EQ(form.LabelPath.Caption(), "\\home\\Logs\\");
        EXPECT_EQ(Rows(form.List1), (std::vector<std::string>{"y_text.txt", "z_ascii.txt"}));
    });
}

TEST_F(Manager, MailNeedsSettingsAndFiles) {
    File("a_text.txt");
    File("B_text.txt");
    Open([&](ReportManagerForm& form) {
        mail.MailServer = "s";
        mail.MailFromAddress = "  ";
        form.ComEmail.Click();
        mail.MailServer = " ";
        mail.MailFromAddress = "a";
        form.ComEmail.Click();
        EXPECT_EQ(messages, (std::vector<std::string>{kNoMail, kNoMail}));
        mail.MailServer = "s";
        form.List1.ClickRow(0);  // unselects the first row
        form.ComEmail.Click();
        EXPECT_EQ(messages.back(), "Please select the Reports you wish to send.");
        EXPECT_EQ(emailers, 0);
        form.List1.ClickRow(0);
        form.List1.ClickRow(1);
        form.ComEmail.Click();
    });
    EXPECT_EQ(emailers, 1);
    EXPECT_EQ(session.AttachmentNames, (std::vector<std::string>{"b_text.txt", "a_text.txt"}));
    EXPECT_EQ(session.AttachmentPaths, (std::vector<std::string>{"\\home\\Reports\\B_text.txt", "\\home\\Reports\\a_text.txt"}));
}

TEST_F(Manager, LogsHaveCaptionsOfTheirOwn) {
    File("Enterprise_Check_1_Log.txt", "Logs");
    File("Enterprise_Check_1_log.HTM", "Logs");
    File("a_text.txt", "Logs");
    settings.BrowserPath = "\\bin\\browser";
    Open(
        [&](ReportManagerForm& form) {
            EXPECT_EQ(form.Caption(), "Quorvantis Logs Manager");
            EXPECT_EQ(form.ComShow.Caption(), "Sh&ow Log");
            EXPECT_EQ(form.ComEmail.Caption(), "&Email Log(s)");
            EXPECT_EQ(form.Command1.Caption(), "&Delete Log(s)");
            EXPECT_FALSE(form.Frame1.Visible());
            EXPECT_EQ(Rows(form.List1), (std::vector<std::string>{"enterprise_check_1_log.txt", "enterprise_check_1_log.htm"}));
            EXPECT_EQ(session.HtmlReportNames, session.AllReportNames);
            form.ComShow.Click();
            EXPECT_EQ(programs.started.front(), "\\bin\\viewer");
            programs.started.clear();
            form.List1.DoubleClickRow(1);
            EXPECT_EQ(programs.started, (std::vector<std::string>{"\\bin\\browser", "file:///home/Logs/Enterprise_Check_1_log.HTM"}));
            mail.MailServer = mail.MailFromAddress = "x";
            for (const int row : Selected(form.List1)) form.List1.SetSelected(row, false);
            form.ComEmail.Click();
            EXPECT_EQ(messages.back(), "Please select the Logs you wish to send.");
        },
        1);
}

struct Viewer : Manager {
    void View(const std::function<void(ReportSelectForm&)>& user) {
        ReportSelectForm form({windows, files, session, settings, flags, reports});
        shown = [&](Form&) {
            user(form);
            form.ComClose.Click();
        };
        windows.ShowModal(form);
    }
};

TEST_F(Viewer, OffersTheFormsThatWereWritten) {
    session.AsciiReportNames = {"r_ascii.txt", "s_ascii.txt"};
    session.HtmlReportNames = {"r_html.htm"};
    session.ViewerFolderChoice = 1;
    View([&](ReportSelectForm& form) {
        EXPECT_FALSE(form.TextReports.Enabled());
        EXPECT_TRUE(form.AsciiReports.Enabled() && form.HtmlReports.Enabled());
        EXPECT_TRUE(form.AsciiReports.Value());
        EXPECT_EQ(Rows(form.List1), session.AsciiReportNames);
        EXPECT_EQ(form.List1.ListIndex(), 0);
        EXPECT_TRUE(Selected(form.List1).empty());
        user::Click(form.HtmlReports);
        EXPECT_FALSE(form.AsciiReports.Value());
        EXPECT_EQ(Rows(form.List1), session.HtmlReportNames);
        EXPECT_EQ(session.ReportListKind, 2);
        form.ComShow.Click();
        EXPECT_EQ(programs.opened, std::vector<std::string>{"file:///home/Reports/r_html.htm"});
    });
}

TEST_F(Viewer, WithoutReportsThereIsNothingToShow) {
    View([&](ReportSelectForm& form) {
        EXPECT_FALSE(form.TextReports.Value() || form.AsciiReports.Value() || form.HtmlReports.Value());
        EXPECT_EQ(form.List1.Count(), 0);
        form.ComShow.Click();
    });
    EXPECT_EQ(messages, std::vector<std::string>{"Please select a Report File Name first."});
}

TEST_F(Viewer, LooksInTheFolderThatWasChosenForIt) {
    session.TextReportNames = {"R_text.txt"};
    session.ViewerFolderChoice = 1;
    View([&](ReportSelectForm& form) { form.List1.DoubleClickRow(0); });
    EXPECT_EQ(programs.started.back(), "/home/Reports/R_text.txt");
    session.ViewerFolderChoice = 0;
    View([&](ReportSelectForm& form) { form.ComShow.Click(); });
    EXPECT_EQ(programs.started.back(), "/home/Logs/R_text.txt");
}

TEST_F(Viewer, ShowsWhatTheManagerFoundLast) {
    File("Big_text.txt");
    Open([](ReportManagerForm&) {});
    session.ViewerFolderChoice = 1;
    View([&](ReportSelectForm& form) {
        EXPECT_EQ(Rows(form.List1), std::vector<std::string>{"big_text.txt"});
        form.ComShow.Click();
    });
    EXPECT_EQ(programs.started.back(), "/home/Reports/Big_text.txt");
}

TEST_F(Viewer, MailsTheSelectedRows) {
    session.TextReportNames = {"a_text.txt", "b_text.txt"};
    session.ViewerFolderChoice = 1;
    View([&](ReportSelectForm& form) {
        form.Command1.Click();
        EXPECT_EQ(messages.back(), kNoMail);
        mail.MailServer = mail.MailFromAddress = "x";
        form.Command1.Click();
        EXPECT_EQ(messages.back(), "Please select the Reports you wish to send.");
        form.List1.ClickRow(1);
        form.Command1.Click();
    });
    EXPECT_EQ(emailers, 1);
    EXPECT_EQ(session.AttachmentPaths, std::vector<std::string>{"\\home\\Reports\\b_text.txt"});
}

struct BrowserTest : ReportWorld {};

TEST_F(BrowserTest, TakesTheQuotesOff) {
    browser.OpenInBrowser("\"file:///a\"");
    browser.OpenInBrowser("http://h/\"");
    EXPECT_EQ(programs.opened, (std::vector<std::string>{"file:///a", "http://h/\""}));
    settings.BrowserPath = "\\bin\\b";
    browser.OpenInBrowser("\"");
    EXPECT_EQ(programs.started, (std::vector<std::string>{"\\bin\\b", ""}));
    programs.started.clear();
    settings.BrowserPath = "\\bin\\my browser";
    browser.OpenInBrowser("http://h/a b");
    EXPECT_EQ(programs.started, (std::vector<std::string>{"\\bin\\my browser", "http://h/a b"}));
}

}  // namespace
}  // namespace qv
