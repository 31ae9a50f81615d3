// The Enterprise check: a list of entries is worked off by the handlers that a user drives, with reports, mails and two logs.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "mainwindow/check_form.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "reports/report_writers.h"
#include "reports/save_reports.h"
#include "session/document_store.h"
#include "session/session.h"

namespace qv {

class SiteRecordLoader;
class WindowRules;

class EnterpriseRun {
   public:
    struct Parts {
        CheckForm& window;
        WindowRules& rules;
        Session& session;
        Settings& settings;
        MailSettings& mail;
        RunFlags& flags;
        DocumentStore& store;
        SiteRecordLoader& loader;
        ReportSaver& reports;
        Files& files;
        EventLoop& loop;
        const Clock& clock;
    };
    explicit EnterpriseRun(Parts parts) : p_(parts) {}

    // The menu's command: the dialog, and the run when the user wants it.
    void MenuFileEnterprise_Click();

    // `emode` 0: begun by the user, 1: automatic. `wascancelled` is -1 if the user stopped it. Blocks until all is done.
    void EnterpriseCheck(std::int16_t emode, std::int16_t& wascancelled);

    // The unattended start: reads what is to be done, waits three seconds and does it. True when the program is to end then.
    bool AutomaticStart();

    // Appends the report of all documents to the HTML log. The links of the document `id` are in memory again afterwards.
    void SaveEnterReport(const std::string& path, std::int32_t id);

    std::function<void()> MenuFileNew_Click;
    std::function<void()> MenuFileLocalMode_Click;
    std::function<void()> MenuFileNormalMode_Click;
    std::function<void()> OpenLocalWebSite;
    std::function<void()> Command1_Click;
    std::function<void()> ComOpen_Click;
    std::function<void()> ComStart_Click;
    std::function<void()> ShowReportForm;
    std::function<void()> UnloadReportForm;
    std::function<void()> UnloadScheduleForm;
    std::function<bool()> ShowBatchForm;  // modally; true: the run begins
    std::function<void(std::int16_t& noRecipient, std::string& errorText)> SendReportsMail;
    std::function<void(std::string& errorText)> SendMail;  // without a dialog

   private:
    void Begin();
    bool RunEntry(const std::string& element);  // false: the run was cancelled
    void OpenAndCheck();
    void WriteReports(std::int32_t id);
    void MailReports();
    void WriteTextLog();
    void MailLogs();
    void Log(const std::string& text);
    void LogRule();
    std::string LogPath(const char* end) const { return p_.settings.LogFolder + LogName(end); }
    std::string LogName(const char* end) const { return "Enterprise_Check_" + stamp_ + end; }

    Parts p_;
    std::string stamp_;
    bool HtmlLogStarted_ = false;
    bool HtmlLogFinishing_ = false;
};

}  // namespace qv
