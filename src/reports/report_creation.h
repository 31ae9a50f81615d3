// Which reports are written, under which names, and what happens with them then.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "reports/save_reports.h"
#include "session/session.h"

namespace qv {

class ReportCreation {
   public:
    struct Parts {
        CheckForm& window;
        WindowRules& rules;
        Session& session;
        Settings& settings;
        const MailSettings& mail;
        ReportSaver& saver;
    };
    explicit ReportCreation(Parts parts) : p_(parts) {}

    // Writes the wanted forms into `folder` (which ends in a backslash): those that the dialog chose, or, when `automatic` isn't 0,
    // those that the open entry asks for, which are mailed then if it asks for that too. `mailError` is empty unless the mail failed.
    void CreateReports(const std::string& folder, std::int16_t automatic, std::string& mailError);

    // The paths that the last CreateReports couldn't write.
    const std::vector<std::string>& NotWritten() const { return notWritten_; }

    void MenuReportsSave_Click();  // the dialog, the reports, and the viewer

    std::function<bool()> ShowDialog;   // modally; false when it was cancelled
    std::function<void()> ShowViewer;   // likewise
    std::function<void(std::int16_t& noRecipient, std::string& errorText)> SendReportsMail;

   private:
    std::string BaseName() const;
    void MailReports(std::string& mailError);

    Parts p_;
    std::vector<std::string> notWritten_;
};

}  // namespace qv
