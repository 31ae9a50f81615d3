#include "enterprise/enterprise_run.h"

#include <algorithm>

#include "controls/window_system.h"
#include "enterprise/enterprise_files.h"
#include "extract/url_text.h"
#include "mainwindow/window_rules.h"
#include "reports/report_forms.h"
#include "session/partial_site.h"
#include "sitedb/load_site_record.h"
#include "text/basic_text.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr double kSecondsBeforeAutomaticRun = 3;
constexpr const char* kPartialSite =
    "You have a Web site partially downloaded. Do you want to delete it in order to run an Enterprise Link Check?";
constexpr const char* kRule = "===================================================";

}  // namespace

void EnterpriseRun::Log(const std::string& text) { p_.session.LogText += text + p_.session.LineBreak + p_.session.LineBreak; }

void EnterpriseRun::LogRule() { Log(kRule); }

bool EnterpriseRun::AutomaticStart() {
    std::string bytes;
    p_.files.Read(p_.session.AppPath + "nwautogo.zdt", bytes);
    ParseEnterpriseSettings(bytes, p_.settings);
    p_.files.Read(p_.session.AppPath + "batchlst.zdt", bytes);
    p_.settings.EnterpriseList = ParseEnterpriseList(bytes);
    if (p_.clock.PausesWanted()) {
        const double end = p_.clock.SecondsSinceMidnight() + kSecondsBeforeAutomaticRun;
        for (double now = end - kSecondsBeforeAutomaticRun; now < end; now = p_.clock.SecondsSinceMidnight()) p_.loop.WaitFor(end - now);
    }
    UnloadScheduleForm();
    p_.window.txtFileName.SetFocus();
    std::int16_t cancelled = kClear;
    EnterpriseCheck(1, cancelled);
    return p_.settings.ExitWhenComplete != 0 && cancelled == 0;
}

void EnterpriseRun::MenuFileEnterprise_Click() {
    const CheckForm& w = p_.window;
    if (HasPartialSite(p_.files, p_.store.CacheFolder()) && !Trim(w.TextFileName.Text()).empty() && w.txtFileName.Count() > 0) {
        const std::string answer = w.Windows().ShowMessage(
            {.text = kPartialSite, .buttons = {"Yes", "No"}, .defaultButton = "Yes", .question = true});
        if (answer != "Yes") return;
    }
    if (!ShowBatchForm()) return;
    std::int16_t cancelled = kClear;
    EnterpriseCheck(0, cancelled);
}

void EnterpriseRun::Begin() {
    p_.session.ClearNames();
    p_.flags.EnterpriseAbort = kClear;
    if (p_.settings.LogFolder.empty()) p_.settings.LogFolder = p_.session.AppPath + "Reports\\";
    p_.settings.AutoCheckLinks = kSet;
    const std::tm now = p_.clock.LocalTime();
    p_.session.LogText = p_.session.LineBreak;
    Log("Zephon Enterprise Check Log: " + FileStamp(now));
    LogRule();
    stamp_ = NameStamp(now);
    p_.flags.EnterpriseRunning = kSet;
    HtmlLogStarted_ = HtmlLogFinishing_ = false;
}

void EnterpriseRun::EnterpriseCheck(std::int16_t emode, std::int16_t& wascancelled) {
    wascancelled = kClear;
    const Flag autoCheckLinks = p_.settings.AutoCheckLinks;
    Begin();
    const std::vector<std::string> list = p_.settings.EnterpriseList;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (!RunEntry(list[i])) {
            Log("Enterprise Link Was Cancelled.  ");
            wascancelled = kSet;
            break;
        }
        const ListBox& documents = p_.window.txtFileName;
        if (documents.Count() == 0) continue;
        const std::int32_t id = documents.ItemData(documents.ListIndex());
        WriteReports(id);
        if (p_.settings.MakeHtmlLog != 0) {
            HtmlLogFinishing_ = i + 1 == list.size();
            SaveEnterReport(LogPath("_Log.htm"), id);
        }
        MailReports();
        HtmlLogStarted_ = true;
    }
    UnloadReportForm();
    p_.session.ClearAttachments();
    p_.session.LogTitle = "Enterprise Link Check Complete.";
    Log("Enterprise Link Check Complete.  ");
    WriteTextLog();
    MailLogs();
    if (emode == 0 || wascancelled != 0 || p_.settings.ExitWhenComplete == 0) ShowReportForm();
    p_.window.LabelInd.SetCaption("Enterprise Check Done.");
    p_.settings.AutoCheckLinks = autoCheckLinks;
    MenuFileNew_Click();
    HtmlLogStarted_ = HtmlLogFinishing_ = false;
    p_.flags.EnterpriseRunning = kClear;
}

// The mode is set to the other one first: its handler, which does nothing in the present mode, makes the window new.
bool EnterpriseRun::RunEntry(const std::string& element) {
    MenuFileNew_Click();
    p_.session.SiteRecordNumber = LeadingInt16(element).value_or(0);
    p_.loader.LoadSiteRecord(p_.session.SiteRecordNumber, 1);
    p_.flags.EnterpriseRunning = kSet;
    if (p_.settings.ProgramMode == kLocalMode) {
        p_.settings.ProgramMode = kInternetMode;
        MenuFileLocalMode_Click();
    } else {
        p_.settings.ProgramMode = kLocalMode;
        MenuFileNormalMode_Click();
    }
    p_.window.TextFileName.SetText(p_.session.SiteUrl + p_.session.SiteFileName);
    OpenAndCheck();
    LogRule();
    return p_.flags.EnterpriseAbort == 0;
}

void EnterpriseRun::OpenAndCheck() {
    if (p_.settings.EntryIsSite != 0) {
        if (p_.settings.ProgramMode == kLocalMode)
            OpenLocalWebSite();
        else
            Command1_Click();
        return;
    }
    ComOpen_Click();
    if (p_.flags.EnterpriseAbort != 0) return;
    Log("Starting Auto Link Check - " + p_.window.LabelInd.Caption());
    ComStart_Click();
    if (p_.flags.EnterpriseAbort == 0) Log("Automatic Link Check complete.  " + p_.window.LabelInd.Caption());
}

void EnterpriseRun::WriteReports(std::int32_t id) {
    const HeldControls held(p_.window, p_.rules);
    p_.session.ClearAttachments();
    std::string base = p_.session.SiteUrl + p_.session.SiteFileName;
    MakeFileNameText(base);
    for (const FormOfReport& form : kFormsOfReport) {
        if (p_.settings.*form.automatic == 0 || p_.settings.AutoReportsAfterCheck == 0) continue;
        const std::string name = base + form.suffix;
        p_.reports.SaveReports(p_.settings.ReportFolder + name, id, static_cast<std::int16_t>(form.kind), 0);
        (p_.session.*form.names).push_back(name);
        p_.session.Attach(p_.settings.ReportFolder, name);
    }
}

void EnterpriseRun::MailReports() {
    const bool wanted = p_.settings.EmailReports != 0 && !p_.session.AttachmentPaths.empty();
    if (!wanted || Trim(p_.mail.MailServer).empty() || Trim(p_.mail.MailFromAddress).empty()) return;
    const HeldControls held(p_.window, p_.rules);
    p_.window.LabelInd.SetCaption("Emailing Reports...");
    std::int16_t noRecipient = kClear;
    std::string errorText;
    SendReportsMail(noRecipient, errorText);
    if (!errorText.empty())
        Log("Error When Emailing Reports: " + errorText);
    else if (noRecipient != 0)
        Log("Error When Emailing Reports. SMTP Server Information Missing. ");
    else
        Log("Sending Email with Reports Attached...  ");
    LogRule();
}

void EnterpriseRun::WriteTextLog() {
    if (p_.settings.MakeEventLog == 0) return;
    if (const auto file = p_.files.Replace(LogPath("_Log.txt"))) {
        file->Append(p_.session.LogText);
        file->Finish();
    }
    p_.session.Attach(p_.settings.LogFolder, LogName("_Log.txt"));
}

// Whatever the sender says, the line that follows tells of a mail: it is never in the file.
void EnterpriseRun::MailLogs() {
    if (p_.settings.EmailLogs == 0 || (p_.settings.MakeHtmlLog == 0 && p_.settings.MakeEventLog == 0)) return;
    // A run that was stopped in its first entry has no HTML log; a missing file would keep the text log from being mailed.
    const std::string htmlLog = LogName("_Log.htm");
    if (p_.settings.MakeHtmlLog != 0 && (p_.settings.MakeEventLog == 0 || p_.files.FileExists(p_.settings.LogFolder + htmlLog)))
        p_.session.Attach(p_.settings.LogFolder, htmlLog);
    const std::string& lineBreak = p_.session.LineBreak;
    p_.mail.MailTo = p_.mail.MailFromAddress;
    p_.mail.MailCopyList.clear();
    p_.mail.MailSubject = "Zephon Quorvantis Enterprise Check Log";
    p_.mail.MailBody = lineBreak + "Your Quorvantis Enterprise Check Log files are attached to this email." + lineBreak + lineBreak;
    p_.mail.MailIncludeComments = " 0";
    const HeldControls held(p_.window, p_.rules);
    p_.window.SetPointer(Pointer::Wait);
    std::string errorText;
    SendMail(errorText);
    p_.window.SetPointer(Pointer::Default);
    Log("Log Files Emailed.");
}

void EnterpriseRun::SaveEnterReport(const std::string& path, std::int32_t id) {
    CheckForm& w = p_.window;
    const ListBox& documents = w.txtFileName;
    w.SetPointer(Pointer::Wait);
    p_.rules.DisableControls();
    w.ProgressBar1.SetVisible(true);
    w.ProgressBar1.SetValue(0);
    w.ProgressBar1.SetRange(0, std::max(documents.Count() - 1, 0));
    w.Picture1.SetVisible(false);
    w.StatusBar1.SetText("Saving Enterprise HTML Report...");
    const std::unique_ptr<FileAppender> file = p_.files.Extend(path);
    ReportOutput out([&](std::string_view block) {
        if (file) file->Append(block);
    });
    const std::string stamp = FileStamp(p_.clock.LocalTime());
    if (!HtmlLogStarted_) {
        for (const char* line : {"<HTML>", "<HEAD><TITLE>Zephon Quorvantis Enterprise Report Log</TITLE>", "</HEAD>", "<BODY>",
                                 "<P><FONT SIZE=5>Zephon Quorvantis Enterprise Report Log</FONT><BR>"})
            out.Line(line);
        out.Line("Enterprise Check Initiated: <B>", stamp, "</B><P><HR>");
    }
    out.Line("<P><FONT SIZE=5>Zephon Quorvantis Validation Report</FONT><BR>");
    out.Line("Report Generated: <B>", stamp, "</B><BR> Report Identifier: <B>", p_.session.SiteUrl, p_.session.SiteFileName, "</B><P>");
    bool printed = false;
    for (int document = 0; document < documents.Count(); ++document) {
        const std::int32_t number = documents.ItemData(document);
        w.ProgressBar1.SetValue(document);
        if (number <= 0) continue;
        p_.store.LoadLinkList(number);
        const std::string address = p_.store.ReadAddress(number).value_or("");
        if (WriteHtmlDocument({documents.Text(document), address, p_.session.Links}, p_.settings.QuestionableOnly != 0, out))
            printed = true;
        p_.loop.YieldIfDue();
    }
    if (!printed) out.Line("<P><UL><LI>All links OK.</UL>");
    out.Line("<P>End Report");
    out.Line("<P><HR>");
    if (HtmlLogFinishing_)
        for (const char* line : {"<P>End Enterprise Report Log", "<P><HR>", "</BODY>", "</HTML>"}) out.Line(line);
    out.Flush();
    if (id > 0) p_.store.LoadLinkList(id);
    p_.rules.EnableControls();
    w.SetPointer(Pointer::Default);
    w.txtFileName.SetFocus();
    w.ProgressBar1.SetValue(0);
    w.StatusBar1.SetText("Done.");
}

}  // namespace qv
