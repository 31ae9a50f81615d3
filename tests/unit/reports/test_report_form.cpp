#include <gtest/gtest.h>

#include "controls/window_system.h"
#include "reports/report_form.h"

namespace qv {
namespace {

struct ReportFormTest : testing::Test {
    WindowSystem windows{[] {}};
    Session session;
    RunFlags flags;
    Form main{windows, "M", ""};
    ListBox documents{main, "L", ListBox::SelectionKind::Single};
    StatusBar status{main, "S"};
    ReportForm form{{windows, session, flags, documents, status}};
};

TEST_F(ReportFormTest, ShowsTheLogAndClearsTheTitle) {
    documents.AddItem("http://h/");
    status.SetText("Done.");
    session.LogText = "One.\r\n\r\n";
    session.LogTitle = "Site Open Complete.";
    windows.Show(form);
    EXPECT_EQ(form.Text1.Text(), "One.\r\n\r\n");
    EXPECT_EQ(form.Label2.Caption(), "");
    EXPECT_EQ(session.LogTitle, "");
    EXPECT_EQ(status.Text(), "Done.");
    EXPECT_FALSE(form.Modal());
    EXPECT_FALSE(form.Command2.Visible());
    EXPECT_EQ(session.ReportFormOpen, kSet);
    form.Command1.Click();
    EXPECT_EQ(session.ReportFormOpen, kClear);
    EXPECT_FALSE(form.Loaded());
}

TEST_F(ReportFormTest, WithoutDocumentsItSaysAborted) {
    status.SetText("Done.");
    session.LogText = "  ";
    windows.Show(form);
    EXPECT_EQ(form.Label2.Caption(), "Aborted.");
    EXPECT_EQ(form.Text1.Text(), "No Events.");
    EXPECT_EQ(status.Text(), "");
}

TEST_F(ReportFormTest, CopiesTheLogAndCannotBeTypedInto) {
    session.LogText = "One.";
    flags.EnterpriseRunning = kSet;
    windows.Show(form);
    EXPECT_TRUE(form.Command2.Visible());
    form.Text1.EnterText("x");
    form.ComCopy.Click();
    EXPECT_EQ(windows.Clipboard(), "One.");
}

}  // namespace
}  // namespace qv
