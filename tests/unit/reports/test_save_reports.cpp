#include "report_world.h"

namespace qv {
namespace {

constexpr std::int16_t kText = 0;
constexpr std::int16_t kAscii = 1;
constexpr std::int16_t kHtml = 2;
const std::string kHead = "\"DOCUMENT\",\"LINKNMBR\",\"STATUS\",\"LINKTEXT\",\"LINKURL\"\r\n";

struct SaveReports : ReportWorld {
    std::string Save(std::int16_t kind, std::int16_t scope = 1, std::int32_t current = 1) {
        saver.SaveReports("\\home\\Reports\\r", current, kind, scope);
        return Written("r");
    }
    void TwoDocuments() {
        Document("http://h/a", 1, {{"one", "u1", "OK"}, {"two", "u2", "404"}});
        Document("http://h/b", 2, {{"three", "u3", "OK"}});
    }
};

TEST_F(SaveReports, WalksTheDocumentsInTheirOrderAndSkipsThoseWithoutANumber) {
    Document("http://h/none", 0, {});
    Document("http://h/gone", -4, {});
    TwoDocuments();
    EXPECT_EQ(Save(kAscii), kHead + "\"http://h/a\",\"1\",\"OK\",\"one\",\"u1\"\r\n\"http://h/a\",\"2\",\"404\",\"two\",\"u2\"\r\n"
                                    "\"http://h/b\",\"1\",\"OK\",\"three\",\"u3\"\r\n");
    EXPECT_EQ(Save(kText).find("none"), std::string::npos);
    EXPECT_EQ(Save(kHtml).find("gone"), std::string::npos);
}

TEST_F(SaveReports, OneDocumentAloneNeedsTheScopeAndTheSetting) {
    TwoDocuments();
    window.txtFileName.SetListIndex(1);
    const std::string one = kHead + "\"http://h/b\",\"1\",\"OK\",\"three\",\"u3\"\r\n";
    EXPECT_NE(Save(kAscii, 1), one);
    settings.SaveOneOnly = kSet;
    EXPECT_EQ(Save(kAscii, 1), one);
    EXPECT_NE(Save(kAscii, 0), one);
}

TEST_F(SaveReports, TheSelectedDocumentsLinksAreInMemoryAgain) {
    TwoDocuments();
    Save(kText, 1, 1);
    EXPECT_EQ(session.Links.LinkCount, 2);
    EXPECT_EQ(session.Links.LinkTexts[1], "one");
    Save(kText, 1, 2);
    EXPECT_EQ(session.Links.LinkTexts[1], "three");
}

TEST_F(SaveReports, AMissingHeaderLeavesTheAddressBefore) {
    Document("http://h/first", 1, {{"x", "u", "404"}}, false);
    Document("http://h/a", 2, {{"x", "u", "404"}});
    Document("http://h/lost", 3, {{"y", "v", "404"}}, false);
    EXPECT_EQ(Save(kAscii), kHead + "\"\",\"1\",\"404\",\"x\",\"u\"\r\n\"http://h/a\",\"1\",\"404\",\"x\",\"u\"\r\n"
                                    "\"http://h/a\",\"1\",\"404\",\"y\",\"v\"\r\n");
    files.files["\\home\\cache\\xlf00003.qvn"] = "s\r\nf\r\n";  // and so does one that is cut off
    EXPECT_NE(Save(kHtml).find("<A HREF=\"http://h/a\" TARGET=\"_blank\">http://h/a</A></I>\r\n<P><TABLE"), std::string::npos);
    EXPECT_EQ(Save(kHtml).find("http://h/lost"), std::string::npos);
    EXPECT_NE(Save(kText).find("Document: http://h/lost\r\n"), std::string::npos);
}

TEST_F(SaveReports, TheTitleNamesTheSite) {
    EXPECT_NE(Save(kText).find(" Report Identifier: http://www.h.test/site/index.htm\r\n"), std::string::npos);
    EXPECT_NE(Save(kHtml).find("Identifier: <B>http://www.h.test/site/index.htm</B><P>\r\n"), std::string::npos);
}

TEST_F(SaveReports, TheWindowTellsOfIt) {
    TwoDocuments();
    window.ProgressBar1.SetVisible(false);
    window.Picture1.SetVisible(true);
    std::vector<std::string> seen;
    loop.Post([&] {
        seen.push_back(window.StatusBar1.Text());
        EXPECT_EQ(window.Pointer(), Pointer::Wait);
        EXPECT_EQ(window.ProgressBar1.Max(), 1);
        EXPECT_TRUE(window.ProgressBar1.Visible());
        EXPECT_FALSE(window.Picture1.Visible());
    });
    Save(kText);
    loop.Post([&] { seen.push_back(window.StatusBar1.Text()); });
    Save(kAscii);
    loop.Post([&] { seen.push_back(window.StatusBar1.Text()); });
    Save(kHtml);
    EXPECT_EQ(seen, (std::vector<std::string>{"Saving Text Reports...", "Saving Ascii Reports...", "Saving HTML Report..."}));
    EXPECT_EQ(window.StatusBar1.Text(), "Done.");
    EXPECT_EQ(window.ProgressBar1.Value(), 0);
    EXPECT_EQ(window.Pointer(), Pointer::Default);
}

TEST_F(SaveReports, AnotherKindWritesNothing) {
    TwoDocuments();
    for (const std::int16_t kind : {std::int16_t{3}, std::int16_t{-1}}) {
        window.StatusBar1.SetText("");
        EXPECT_FALSE(saver.SaveReports("\\home\\Reports\\r", 1, kind, 1));
        EXPECT_EQ(Written("r"), "(none)");
        EXPECT_EQ(window.StatusBar1.Text(), "Done.");
    }
}

TEST_F(SaveReports, AFolderThatCannotBeWrittenEndsWithDoneAndNoFile) {
    TwoDocuments();
    files.writesFail = true;
    EXPECT_FALSE(saver.SaveReports("\\home\\Reports\\r", 1, kText, 1));
    EXPECT_EQ(window.StatusBar1.Text(), "Done.");
    EXPECT_EQ(Written("r"), "(none)");
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(session.Links.LinkCount, 2);
}

TEST_F(SaveReports, ADiskThatFillsUpLeavesTheOldReport) {
    TwoDocuments();
    files.files["\\home\\Reports\\r"] = "old";
    loop.Post([&] { files.writesFail = true; });
    EXPECT_FALSE(saver.SaveReports("\\home\\Reports\\r", 1, kText, 1));
    EXPECT_EQ(Written("r"), "old");
}

// Whatever a handler does to the links in memory meanwhile, the report has those of its document.
TEST_F(SaveReports, EventsMeanwhileDoNotReachTheRows) {
    std::vector<Row> rows(200, {"x", "u", "404"});
    Document("http://h/a", 1, rows);
    loop.Post([&] { session.Links.Clear(); });
    EXPECT_NE(Save(kText).find("  Total Checked: 200 Links.\r\n"), std::string::npos);
    EXPECT_EQ(session.Links.LinkCount, 200);
}

struct Clipboard : ReportWorld {};

TEST_F(Clipboard, HasTheSelectedDocumentAndNothingElseChanges) {
    Document("http://h/a", 1, {{"one", "u1", "OK"}});
    Document("http://h/b", 2, {{"two", "u2", "404"}, {"three", "u3", "OK"}});
    window.txtFileName.SetListIndex(1);
    settings.QuestionableOnly = kClear;
    window.ProgressBar1.SetValue(7);
    window.Picture1.SetVisible(true);
    saver.MenuReportsCopy_Click();
    const std::string text = windows.Clipboard();
    EXPECT_NE(text.find("\r\n http://www.h.test/site/index.htm\r\n\r\n===="), std::string::npos);
    EXPECT_NE(text.find("Document: http://h/b\r\n"), std::string::npos);
    EXPECT_NE(text.find("  404   1. two"), std::string::npos);
    EXPECT_EQ(text.find("three"), std::string::npos);
    EXPECT_EQ(session.Links.LinkCount, 2);
    EXPECT_EQ(window.LabelInd.Caption(), "Done.");
    EXPECT_EQ(window.ProgressBar1.Value(), 0);
    EXPECT_FALSE(window.Picture1.Visible());
    EXPECT_EQ(window.Pointer(), Pointer::Default);
}

TEST_F(Clipboard, WithoutADocumentThereAreTotalsOfNothing) {
    Document("http://h/none", 0, {});
    saver.MenuReportsCopy_Click();
    EXPECT_NE(windows.Clipboard().find(" Total Links All Documents: 0\r\n"), std::string::npos);
    EXPECT_EQ(windows.Clipboard().find("Document: "), std::string::npos);
}

TEST_F(Clipboard, AMissingLinksFileIsNoErrorAndAnUnreadableOneIs) {
    Document("http://h/a", 1, {{"one", "u1", "404"}});
    files.files.erase("\\home\\cache\\xlf00001.lks");
    windows.SetClipboard("before");
    saver.MenuReportsCopy_Click();
    EXPECT_TRUE(messages.empty());
    EXPECT_NE(windows.Clipboard(), "before");
    files.files["\\home\\cache\\xlf00001.lks"] = "one\r\nu1\r\n\r\n404\r\n\r\n";
    files.unreadable.insert("\\home\\cache\\xlf00001.lks");
    windows.SetClipboard("before");
    saver.MenuReportsCopy_Click();
    EXPECT_EQ(messages, std::vector<std::string>{"Permission denied"});
    EXPECT_EQ(windows.Clipboard(), "before");
    EXPECT_EQ(window.Pointer(), Pointer::Default);
}

}  // namespace
}  // namespace qv
