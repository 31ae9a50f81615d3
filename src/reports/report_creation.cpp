#include "reports/report_creation.h"

#include "controls/window_system.h"
#include "extract/url_text.h"
#include "reports/report_forms.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr const char* kMailQuestion = "Reports were created, do you want to Email them now?";

}  // namespace

std::string ReportCreation::BaseName() const {
    const ListBox& documents = p_.window.txtFileName;
    std::string name(Trim(documents.Text(documents.ListIndex())));
    if (p_.settings.SaveOneOnly == 0) name = p_.session.SiteUrl + "all";
    MakeFileNameText(name);
    return name;
}

void ReportCreation::CreateReports(const std::string& folder, std::int16_t automatic, std::string& mailError) {
    mailError.clear();
    CheckForm& w = p_.window;
    w.SetPointer(Pointer::Wait);
    notWritten_.clear();
    p_.session.ClearNames();
    p_.session.ClearAttachments();
    if (w.txtFileName.Count() > 0) {
        const std::string base = BaseName();
        const std::int32_t selected = w.txtFileName.ItemData(w.txtFileName.ListIndex());
        for (const FormOfReport& form : kFormsOfReport) {
            if ((automatic != 0 ? p_.settings.*form.automatic : p_.settings.*form.chosen) == 0) continue;
            const std::string name = base + form.suffix;
            if (!p_.saver.SaveReports(folder + name, selected, static_cast<std::int16_t>(form.kind), 1))
                notWritten_.push_back(folder + name);
            p_.session.*form.names = {name};
            p_.session.Attach(folder, name);
        }
    }
    if (automatic != 0) MailReports(mailError);
    w.SetPointer(Pointer::Default);
}

void ReportCreation::MailReports(std::string& mailError) {
    const bool wanted = p_.settings.EmailReports != 0 && !p_.session.AttachmentPaths.empty();
    if (!wanted || Trim(p_.mail.MailServer).empty() || Trim(p_.mail.MailFromAddress).empty()) return;
    const bool asked = p_.settings.AutoCheckLinks == 0;
    if (asked && p_.window.Windows().ShowMessage({.text = kMailQuestion, .buttons = {"Yes", "No"}, .defaultButton = "Yes", .question = true}) != "Yes")
        return;
    p_.window.LabelInd.SetCaption("Emailing Reports...");
    std::int16_t noRecipient = 0;
    SendReportsMail(noRecipient, mailError);
}

void ReportCreation::MenuReportsSave_Click() {
    if (!ShowDialog()) return;
    {
        const HeldControls held(p_.window, p_.rules);
        std::string mailError;
        CreateReports(p_.settings.ReportFolder, 0, mailError);
    }
    p_.session.ViewerFolderChoice = 1;
    ShowViewer();
}

}  // namespace qv
