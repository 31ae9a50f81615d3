// The run: what it drives in which order, what it logs, reports and mails, and what a stop leaves out.
#include "enterprise/enterprise_world.h"

namespace qv {
namespace {

using Calls = std::vector<std::string>;
constexpr const char* kA = "http://www.h.test/site/a.htm";

struct EnterpriseRunTest : EnterpriseWorld {
    // Each opening lists one document with a good and a missing link.
    void OpensWell() {
        opens = [this] {
            Document(window.TextFileName.Text(), 1, {{"Fine", "http://h/fine", "OK"}, {"Gone", "http://h/gone", "404"}});
            window.LabelInd.SetCaption("Document 1 of 1");
        };
        checks = [this] { window.LabelInd.SetCaption(" 1 of 2 links checked were questionable."); };
    }
    std::string A(const std::function<void(SiteRecord&)>& change = {}) {
        return Entry("http://www.h.test/site/", "a.htm", kInternetMode, false, change);
    }
    static void AllReports(SiteRecord& record) {
        for (const auto flag : {field::AutoReportsAfterCheck, field::MakeTextReport, field::MakeAsciiReport, field::MakeHtmlReport,
                                field::EmailReports})
            record.SetNumber(flag, -1);
    }
    void WithMail() {
        mail.MailServer = "mail.h.test";
        mail.MailFromAddress = "me@h.test";
    }
    int Count(const std::string& what) const { return static_cast<int>(std::count(calls.begin(), calls.end(), what)); }
};

TEST_F(EnterpriseRunTest, EachKindOfEntryHasItsOpenerInItsOwnMode) {
    const auto site = Entry("http://h/s/", "", kInternetMode, true);
    const auto document = Entry("http://h/d/", "d.htm");
    const auto localSite = Entry("http://h/ls/", "i.htm", kLocalMode, true);
    const auto localDocument = Entry("http://h/ld/", "l.htm", kLocalMode, false);
    EXPECT_EQ(Check({localDocument, site, localSite, document}), 0);
    EXPECT_EQ(calls, (Calls{"new", "local mode from 0", "document http://h/ld/l.htm", "check",  //
                            "new", "internet mode from 1", "site http://h/s/",                  //
                            "new", "local mode from 0", "local site http://h/ls/i.htm",         //
                            "new", "internet mode from 1", "document http://h/d/d.htm", "check",
                            "unload log", "show log", "new"}));
}

TEST_F(EnterpriseRunTest, TheLogOfADocument) {
    OpensWell();
    settings.MakeEventLog = kSet;
    Check({A()});
    const std::string expected = LogOf({"Starting Auto Link Check - Document 1 of 1",
                                        "Automatic Link Check complete.   1 of 2 links checked were questionable.", "=",
                                        "Enterprise Link Check Complete.  "});
    EXPECT_EQ(files.files[kTextLog], expected);
    EXPECT_EQ(session.LogText, expected);
    EXPECT_EQ(session.LogTitle, "Enterprise Link Check Complete.");
}

TEST_F(EnterpriseRunTest, AnEmptyListWritesTheHeadAndFinishes) {
    settings.MakeEventLog = settings.MakeHtmlLog = kSet;
    EXPECT_EQ(Check({}), 0);
    EXPECT_EQ(files.files[kTextLog], LogOf({"Enterprise Link Check Complete.  "}));
    EXPECT_FALSE(files.FileExists(kHtmlLog));
    EXPECT_EQ(window.LabelInd.Caption(), "Enterprise Check Done.");
}

TEST_F(EnterpriseRunTest, TheSwitchesAreSetMeanwhileAndAsBeforeBehindIt) {
    settings.AutoCheckLinks = kClear;
    flags.EnterpriseAbort = kSet;
    session.TextReportNames = {"old"};
    opens = [this] {
        EXPECT_EQ(settings.AutoCheckLinks, kSet);
        EXPECT_EQ(flags.EnterpriseRunning, kSet);
        EXPECT_EQ(flags.EnterpriseAbort, kClear);
        EXPECT_TRUE(session.TextReportNames.empty());
    };
    Check({A()});
    EXPECT_EQ(settings.AutoCheckLinks, kClear);
    EXPECT_EQ(flags.EnterpriseRunning, kClear);
    EXPECT_EQ(window.txtFileName.Count(), 0);
    EXPECT_EQ(window.TextFileName.Text(), "");
}

TEST_F(EnterpriseRunTest, TheRunIsSetAgainForEachEntry) {
    opens = [this] { EXPECT_EQ(std::exchange(flags.EnterpriseRunning, kClear), kSet); };
    const auto a = A();
    Check({a, a});
}

TEST_F(EnterpriseRunTest, AFolderOfNoNameBecomesThatOfTheReports) {
    settings.LogFolder.clear();
    Check({});
    EXPECT_EQ(settings.LogFolder, "\\home\\Reports\\");
}

TEST_F(EnterpriseRunTest, AStoppedOpenLeavesTheEntryUncheckedAndEndsTheRun) {
    OpensWell();
    settings.MakeEventLog = settings.MakeHtmlLog = kSet;
    opens = [this] { flags.EnterpriseAbort = kSet; };
    const auto a = A(AllReports);
    EXPECT_EQ(Check({a, a}), -1);
    EXPECT_EQ(Count("check"), 0);
    EXPECT_EQ(Count(std::string("document ") + kA), 1);
    EXPECT_EQ(files.files[kTextLog], LogOf({"=", "Enterprise Link Was Cancelled.  ", "Enterprise Link Check Complete.  "}));
    EXPECT_FALSE(files.FileExists(kHtmlLog));
}

TEST_F(EnterpriseRunTest, AStoppedCheckLeavesNoReportOfItsEntryAndKeepsThoseBefore) {
    OpensWell();
    settings.MakeEventLog = settings.MakeHtmlLog = kSet;
    const auto first = A(AllReports);
    const auto second = Entry("http://h/", "b.htm", kInternetMode, false, AllReports);
    checks = [this] { flags.EnterpriseAbort = FlagOf(Count("check") == 2); };
    EXPECT_EQ(Check({first, second, first}), -1);
    EXPECT_EQ(session.TextReportNames, Calls{"www_h_test_site_a_htm_text.txt"});
    EXPECT_FALSE(files.FileExists("\\home\\Reports\\h_b_htm_text.txt"));
    EXPECT_EQ(files.files[kTextLog],
              LogOf({"Starting Auto Link Check - Document 1 of 1", "Automatic Link Check complete.  Document 1 of 1", "=",
                     "Starting Auto Link Check - Document 1 of 1", "=", "Enterprise Link Was Cancelled.  ",
                     "Enterprise Link Check Complete.  "}));
    EXPECT_EQ(files.files[kHtmlLog].find("Enterprise Report Log</FONT>"), files.files[kHtmlLog].rfind("Enterprise Report Log</FONT>"));
    EXPECT_EQ(files.files[kHtmlLog].find("End Enterprise"), std::string::npos);
}

TEST_F(EnterpriseRunTest, AnEntryThatOpensNothingIsPassedOver) {
    settings.MakeHtmlLog = kSet;
    const auto a = A(AllReports);
    opens = [this] {
        if (Count(std::string("document ") + kA) == 2) Document(kA, 1, {{"Fine", "http://h/fine", "OK"}});
    };
    EXPECT_EQ(Check({a, a}), 0);
    EXPECT_EQ(session.TextReportNames.size(), 1U);
    const std::string& log = files.files[kHtmlLog];
    EXPECT_EQ(log.substr(0, 6), "<HTML>");
    EXPECT_NE(log.find("<P>End Enterprise Report Log\r\n"), std::string::npos);
}

TEST_F(EnterpriseRunTest, ALastEntryThatOpensNothingLeavesTheLogWithoutAFoot) {
    settings.MakeHtmlLog = kSet;
    const auto a = A();
    opens = [this] {
        if (Count(std::string("document ") + kA) == 1) Document(kA, 1, {{"Fine", "http://h/fine", "OK"}});
    };
    Check({a, a});
    EXPECT_EQ(files.files[kHtmlLog].find("End Enterprise"), std::string::npos);
    EXPECT_NE(files.files[kHtmlLog].find("<P>End Report\r\n<P><HR>\r\n"), std::string::npos);
}

TEST_F(EnterpriseRunTest, ReportsAreNamedByTheWholeAddressAndNoted) {
    OpensWell();
    WithMail();
    const auto a = A(AllReports);
    mails = [this] {
        EXPECT_EQ(session.AttachmentNames, (Calls{"www_h_test_site_a_htm_text.txt", "www_h_test_site_a_htm_ascii.txt",
                                                  "www_h_test_site_a_htm_html.htm"}));
        EXPECT_EQ(session.AttachmentPaths[1], "\\home\\Reports\\www_h_test_site_a_htm_ascii.txt");
        EXPECT_EQ(window.LabelInd.Caption(), "Emailing Reports...");
    };
    Check({a, a});
    EXPECT_EQ(Count("mail reports"), 2);
    EXPECT_EQ(session.TextReportNames.size(), 2U);
    EXPECT_EQ(session.AsciiReportNames.size(), 2U);
    EXPECT_EQ(session.HtmlReportNames.size(), 2U);
    EXPECT_TRUE(session.AttachmentPaths.empty());
    EXPECT_TRUE(files.FileExists("\\home\\Reports\\www_h_test_site_a_htm_html.htm"));
}

TEST_F(EnterpriseRunTest, NoReportsWithoutBothFlags) {
    OpensWell();
    Check({A([](SiteRecord& record) { record.SetNumber(field::MakeTextReport, -1); }),
           A([](SiteRecord& record) { record.SetNumber(field::AutoReportsAfterCheck, -1); })});
    EXPECT_TRUE(session.TextReportNames.empty());
    for (const auto& [path, bytes] : files.files) EXPECT_EQ(path.find("\\home\\Reports\\"), std::string::npos) << path;
}

TEST_F(EnterpriseRunTest, MailIsLeftOutWithoutSettingsAttachmentsOrWish) {
    OpensWell();
    const auto a = A(AllReports);
    Check({a});
    mail.MailServer = "mail.h.test";
    mail.MailFromAddress = "  ";
    Check({a});
    WithMail();
    Check({A([](SiteRecord& record) { record.SetNumber(field::EmailReports, -1); })});
    Check({A([](SiteRecord& record) {
        AllReports(record);
        record.SetNumber(field::EmailReports, 0);
    })});
    EXPECT_EQ(Count("mail reports"), 0);
    EXPECT_EQ(session.LogText.find("ail"), session.LogText.npos);
}

TEST_F(EnterpriseRunTest, WhatIsLoggedOfAMail) {
    OpensWell();
    WithMail();
    const auto a = A(AllReports);
    const auto logged = [&](std::int16_t none, const std::string& error) {
        noRecipient = none;
        mailError = error;
        Check({a});
        const auto start = session.LogText.find("questionable.\r\n\r\n") + 17 + Rule().size();
        return session.LogText.substr(start);
    };
    const std::string end = "\r\n\r\n" + Rule() + "Enterprise Link Check Complete.  \r\n\r\n";
    EXPECT_EQ(logged(0, ""), "Sending Email with Reports Attached...  " + end);
    EXPECT_EQ(logged(-1, ""), "Error When Emailing Reports. SMTP Server Information Missing. " + end);
    EXPECT_EQ(logged(0, "refused"), "Error When Emailing Reports: refused" + end);
    EXPECT_EQ(logged(-1, "refused"), "Error When Emailing Reports: refused" + end);
}

TEST_F(EnterpriseRunTest, NothingElseCanBeStartedWhileReportsAreWrittenAndMailed) {
    OpensWell();
    WithMail();
    settings.MakeHtmlLog = settings.EmailLogs = kSet;
    int seen = 0;
    const auto held = [&] {
        EXPECT_FALSE(window.MenuFile.Enabled());
        EXPECT_FALSE(window.Command1.Enabled());
        EXPECT_FALSE(window.ToolEnter.Enabled());
        ++seen;
    };
    mails = held;
    loop.onYield = held;
    window.txtFileName.SetFocus();
    Check({A(AllReports)});
    EXPECT_EQ(Count("mail reports") + Count("mail logs"), 2);
    EXPECT_GT(seen, 2);
    EXPECT_TRUE(window.MenuFile.Enabled());
    EXPECT_TRUE(window.Command1.Enabled());
    EXPECT_EQ(window.Focus(), &window.txtFileName);
}

TEST_F(EnterpriseRunTest, TheTextLogReplacesAnOlderOneAndIsWrittenBehindACancelledRunToo) {
    files.files[kTextLog] = "old and much longer than anything that a log of a run without entries has to say about itself, really. "
                            "It goes on and on, and on again, so that what is left of it would be seen.";
    settings.MakeEventLog = kSet;
    Check({});
    EXPECT_EQ(files.files[kTextLog], LogOf({"Enterprise Link Check Complete.  "}));
}

TEST_F(EnterpriseRunTest, LogsAreMailedToTheSender) {
    WithMail();
    settings.MakeEventLog = settings.MakeHtmlLog = settings.EmailLogs = kSet;
    mail.MailCopyList = "boss@h.test,";
    mail.MailTo = "old@h.test";
    mails = [this] {
        EXPECT_EQ(window.Pointer(), Pointer::Wait);
        EXPECT_EQ(session.AttachmentPaths, (Calls{kTextLog, kHtmlLog}));
        EXPECT_EQ(session.AttachmentNames[1], "Enterprise_Check_21-11-26_09.05.07AM_Log.htm");
        EXPECT_EQ(mail.MailTo, "me@h.test");
        EXPECT_EQ(mail.MailCopyList, "");
        EXPECT_EQ(mail.MailSubject, "Zephon Quorvantis Enterprise Check Log");
        EXPECT_EQ(mail.MailBody, "\r\nYour Quorvantis Enterprise Check Log files are attached to this email.\r\n\r\n");
        EXPECT_EQ(mail.MailIncludeComments, " 0");
    };
    mailError = "refused";
    files.files[kHtmlLog] = "a log";
    Check({});
    EXPECT_EQ(Count("mail logs"), 1);
    EXPECT_EQ(session.LogText, LogOf({"Enterprise Link Check Complete.  ", "Log Files Emailed."}));
    EXPECT_EQ(files.files[kTextLog], LogOf({"Enterprise Link Check Complete.  "}));
}

TEST_F(EnterpriseRunTest, ALogThatWasNeverBegunDoesNotKeepTheOtherFromBeingMailed) {
    settings.MakeEventLog = settings.MakeHtmlLog = settings.EmailLogs = kSet;
    mails = [this] { EXPECT_EQ(session.AttachmentPaths, Calls{kTextLog}); };
    Check({});
    EXPECT_EQ(Count("mail logs"), 1);
}

TEST_F(EnterpriseRunTest, OnlyLogsThatAreMadeAreMailed) {
    settings.EmailLogs = kSet;
    Check({});
    EXPECT_EQ(Count("mail logs"), 0);
    settings.MakeHtmlLog = kSet;
    mails = [this] { EXPECT_EQ(session.AttachmentPaths, Calls{kHtmlLog}); };
    Check({});
    settings.MakeHtmlLog = kClear;
    settings.MakeEventLog = kSet;
    mails = [this] { EXPECT_EQ(session.AttachmentPaths, Calls{kTextLog}); };
    Check({});
    EXPECT_EQ(Count("mail logs"), 2);
}

TEST_F(EnterpriseRunTest, WhenTheLogIsShown) {
    const auto isShown = [this](std::int16_t emode, Flag exits, bool stop) {
        calls.clear();
        settings.ExitWhenComplete = exits;
        opens = [this, stop] { flags.EnterpriseAbort = FlagOf(stop); };
        Check({A()}, emode);
        return Called("show log");
    };
    EXPECT_FALSE(isShown(1, kSet, false));
    EXPECT_TRUE(isShown(1, kSet, true));
    EXPECT_TRUE(isShown(1, kClear, false));
    EXPECT_TRUE(isShown(0, kSet, false));
}

TEST_F(EnterpriseRunTest, ALogThatCantBeWrittenIsPassedOver) {
    OpensWell();
    settings.MakeEventLog = settings.MakeHtmlLog = kSet;
    checks = [this] { files.writesFail = true; };
    EXPECT_EQ(Check({A()}), 0);
    EXPECT_FALSE(files.FileExists(kTextLog));
    EXPECT_FALSE(files.FileExists(kHtmlLog));
    EXPECT_TRUE(messages.empty());
}

TEST_F(EnterpriseRunTest, ANumberBehindTheDatabaseGoesByWhatIsInForce) {
    OpensWell();
    const auto a = A();
    settings.EntryIsSite = kClear;
    EXPECT_EQ(Check({"9", a, "9", "0", "nothing"}), 0);
    EXPECT_EQ(Count("check"), 5);
}

// The unattended start.

TEST_F(EnterpriseRunTest, AnAutomaticStartReadsItsFilesAndWaitsThreeSeconds) {
    const auto a = A();
    files.files["\\home\\nwautogo.zdt"] = "-1\r\n 0\r\n-1\r\n 0\r\n\\home\\Logs\\\r\n";
    files.files["\\home\\batchlst.zdt"] = "1\r\n" + a + "\r\n";
    clock.pauses = true;
    double began = 0;
    opens = [&] { began = clock.now; };
    EXPECT_TRUE(run.AutomaticStart());
    EXPECT_EQ(began, 36003);
    EXPECT_EQ(calls.front(), "unload schedule");
    EXPECT_TRUE(files.FileExists(kTextLog));
}

TEST_F(EnterpriseRunTest, AnAutomaticStartStaysWithoutTheWishToEndOrBehindAStop) {
    const auto a = A();
    files.files["\\home\\batchlst.zdt"] = "1\r\n" + a + "\r\n";
    files.files["\\home\\nwautogo.zdt"] = " 0\r\n 0\r\n 0\r\n 0\r\n\\l\\\r\n";
    EXPECT_FALSE(run.AutomaticStart());
    files.files["\\home\\nwautogo.zdt"] = " 0\r\n 0\r\n-1\r\n 0\r\n\\l\\\r\n";
    opens = [this] { flags.EnterpriseAbort = kSet; };
    EXPECT_FALSE(run.AutomaticStart());
}

TEST_F(EnterpriseRunTest, TheWaitAtTheEndOfADayIsNeverOver) {
    struct Midnight {};
    clock.pauses = true;
    clock.now = 86398;
    int midnights = 0;
    loop.StartTimer(std::chrono::milliseconds{500}, true, [&] {
        if (clock.now < 86399.5) return;
        clock.now = 0;
        if (++midnights == 3) throw Midnight();
    });
    EXPECT_THROW(run.AutomaticStart(), Midnight);
    EXPECT_TRUE(calls.empty());
}

// The menu's command.

TEST_F(EnterpriseRunTest, TheCommandRunsWhatTheDialogBegins) {
    run.MenuFileEnterprise_Click();
    EXPECT_EQ(calls, (Calls{"dialog", "unload log", "show log", "new"}));
    calls.clear();
    begins = false;
    run.MenuFileEnterprise_Click();
    EXPECT_EQ(calls, Calls{"dialog"});
    EXPECT_TRUE(messages.empty());
}

TEST_F(EnterpriseRunTest, TheCommandAsksAboutASiteThatIsPartlyOpen) {
    files.files["\\home\\cache\\resumes.zdt"] = "http://h/\r\n 1\r\n 1\r\n";
    run.MenuFileEnterprise_Click();
    EXPECT_TRUE(messages.empty()) << "without an address and documents";
    calls.clear();
    window.TextFileName.SetText("http://h/");
    window.txtFileName.AddItem("http://h/", 1);
    answers = {"No"};
    run.MenuFileEnterprise_Click();
    EXPECT_EQ(messages, Calls{"You have a Web site partially downloaded. Do you want to delete it in order to run an Enterprise Link "
                              "Check?"});
    EXPECT_TRUE(calls.empty());
    answers = {"Yes"};
    run.MenuFileEnterprise_Click();
    EXPECT_EQ(calls.front(), "dialog");
}

// The HTML log.

struct EnterpriseLog : EnterpriseRunTest {
    static constexpr const char* kPath = "\\home\\Logs\\log.htm";
    static std::string Section(const std::string& documents) {
        return "<P><FONT SIZE=5>Zephon Quorvantis Validation Report</FONT><BR>\r\n"
               "Report Generated: <B>November 21, 2026 - 09:05:07</B><BR> Report Identifier: <B>http://www.h.test/site/index.htm</B><P>\r\n" +
               documents + "<P>End Report\r\n<P><HR>\r\n";
    }
    static std::string Table(const std::string& address, const std::string& rows) {
        return "<P><B>Web Page: </B><I><A HREF=\"" + address + "\" TARGET=\"_blank\">" + address +
               "</A></I>\r\n"
               "<P><TABLE WIDTH=2500 CELLPADDING=2><TR><TD WIDTH=4%><B>Link Status</B></TD><TD WIDTH=10%><B>Link Text</B></TD><TD "
               "WIDTH=87%><B>Link URL</B></TD></TR>\r\n" +
               rows + "</TABLE>\r\n";
    }
    static inline const std::string kHead =
        "<HTML>\r\n<HEAD><TITLE>Zephon Quorvantis Enterprise Report Log</TITLE>\r\n</HEAD>\r\n<BODY>\r\n"
        "<P><FONT SIZE=5>Zephon Quorvantis Enterprise Report Log</FONT><BR>\r\n"
        "Enterprise Check Initiated: <B>November 21, 2026 - 09:05:07</B><P><HR>\r\n";
};

TEST_F(EnterpriseLog, HasEachDocumentWithItsRows) {
    settings.QuestionableOnly = kClear;
    Document("a", 1, {{"Fine", "http://h/fine", "OK"}, {"Just a line", "place", ""}, {"", "nothing", ""}, {"Gone", "http://h/gone", "404"}});
    Document("empty", 2, {});
    Document("never opened", 0, {});
    run.SaveEnterReport(kPath, 1);
    EXPECT_EQ(files.files[kPath],
              kHead + Section(Table("a",
                                    "<TR><TD WIDTH=4%> OK </TD><TD WIDTH=10%>1. Fine                          </TD><TD WIDTH=86%><A "
                                    "HREF=\"http://h/fine\" TARGET=\"_blank\">http://h/fine</A></TD></TR>\r\n"
                                    "<TR><TD></TD><TD WIDTH=10%>2. Just a line                   </TD><TD>place</TD></TR>\r\n"
                                    "<TR><TD WIDTH=4%> 404 </TD><TD WIDTH=10%>4. Gone                          </TD><TD WIDTH=86%><A "
                                    "HREF=\"http://h/gone\" TARGET=\"_blank\">http://h/gone</A></TD></TR>\r\n") +
                              Table("empty", "")));
}

TEST_F(EnterpriseLog, OfQuestionableLinksLeavesOutTheGoodOnes) {
    settings.QuestionableOnly = kSet;
    Document("good", 1, {{"Fine", "http://h/fine", "OK"}, {"Star", "http://h/star", "OK *"}, {"Shop", "https://h/", "NA/SE"}});
    Document("bad", 2, {{"Star", "http://h/star", "OK *"}, {"Shop", "https://h/", "NA/SE"}, {"A line", "", ""}, {"Gone", "u", "404"}});
    run.SaveEnterReport(kPath, 1);
    EXPECT_EQ(files.files[kPath],
              kHead + Section(Table("bad",
                                    "<TR><TD></TD><TD WIDTH=10%>3. A line                        </TD><TD></TD></TR>\r\n"
                                    "<TR><TD WIDTH=4%> 404 </TD><TD WIDTH=10%>4. Gone                          </TD><TD WIDTH=86%><A "
                                    "HREF=\"u\" TARGET=\"_blank\">u</A></TD></TR>\r\n")));
}

TEST_F(EnterpriseLog, OfGoodLinksAloneSaysSo) {
    settings.QuestionableOnly = kSet;
    Document("good", 1, {{"Fine", "http://h/fine", "OK"}});
    run.SaveEnterReport(kPath, 1);
    EXPECT_EQ(files.files[kPath], kHead + Section("<P><UL><LI>All links OK.</UL>\r\n"));
}

TEST_F(EnterpriseLog, CutsTextsThatAreTooLong) {
    settings.QuestionableOnly = kClear;
    const std::string thirty(30, 'x');
    Document("a", 1, {{thirty, "u", "404"}, {thirty + "y", "u", "404"}});
    run.SaveEnterReport(kPath, 1);
    EXPECT_NE(files.files[kPath].find(">1. " + thirty + "<"), std::string::npos);
    EXPECT_NE(files.files[kPath].find(">2. " + thirty.substr(3) + "...<"), std::string::npos);
}

TEST_F(EnterpriseLog, GrowsBehindWhatIsThere) {
    files.files[kPath] = "older\r\n";
    run.SaveEnterReport(kPath, 0);
    EXPECT_EQ(files.files[kPath], "older\r\n" + kHead + Section("<P><UL><LI>All links OK.</UL>\r\n"));
}

TEST_F(EnterpriseLog, ADocumentWithoutAHeaderHasNoAddress) {
    settings.QuestionableOnly = kClear;
    Document("a", 1, {}, false);
    run.SaveEnterReport(kPath, 1);
    EXPECT_EQ(files.files[kPath], kHead + Section(Table("", "")));
}

TEST_F(EnterpriseLog, LeavesTheWindowAsItWasAndTheSelectedDocumentsLinksInMemory) {
    Document("b", 2, {{"Other", "o", "404"}});
    Document("a", 1, {{"Fine", "f", "OK"}});
    window.ProgressBar1.SetVisible(false);
    window.Picture1.SetVisible(true);
    const int before = loop.yields;
    run.SaveEnterReport(kPath, 2);
    EXPECT_EQ(session.Links.LinkTexts[1], "Other");
    EXPECT_EQ(loop.yields - before, 2);
    EXPECT_EQ(window.ProgressBar1.Value(), 0);
    EXPECT_EQ(window.ProgressBar1.Max(), 1);
    EXPECT_TRUE(window.ProgressBar1.Visible());
    EXPECT_FALSE(window.Picture1.Visible());
    EXPECT_EQ(window.StatusBar1.Text(), "Done.");
    EXPECT_EQ(window.Pointer(), Pointer::Default);
    EXPECT_EQ(window.Focus(), &window.txtFileName);
}

TEST_F(EnterpriseLog, TheHeadComesOnceAndTheFootBehindTheLastEntry) {
    OpensWell();
    settings.MakeHtmlLog = kSet;
    const auto a = A();
    Check({a, a});
    const std::string& log = files.files[kHtmlLog];
    EXPECT_EQ(log.substr(0, kHead.size()), kHead);
    EXPECT_EQ(log.find("<HTML>", 1), std::string::npos);
    const std::string end = "<P>End Report\r\n<P><HR>\r\n<P>End Enterprise Report Log\r\n<P><HR>\r\n</BODY>\r\n</HTML>\r\n";
    EXPECT_EQ(log.substr(log.size() - end.size()), end);
    const std::size_t length = log.size();
    Check({a});
    EXPECT_EQ(files.files[kHtmlLog].find("<HTML>", 1), length) << "the next run begins anew";
}

}  // namespace
}  // namespace qv
