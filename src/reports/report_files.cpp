#include "reports/report_files.h"

#include "text/basic_text.h"

namespace qv {
namespace {

constexpr const char* kNoMailSettings =
    "Before you select this option, you must enter your Email information in Quorvantis Preferences (Under the 'Edit' Menu).";

}  // namespace

void ReportFiles::Show(std::int16_t listKind, const std::string& folder, const std::string& name) const {
    const std::string path = folder + p_.files.RealName(folder, name);
    if (listKind == kHtmlList || (listKind == kAllList && EndsWith(Lower(name), ".htm")))
        p_.browser.OpenInBrowser("\"" + FileUrl(path) + "\"");
    else
        p_.programs.Start(p_.settings.SourceViewerPath, {NativePath(path)});
}

bool ReportFiles::CanMail() const {
    if (!Trim(p_.mail.MailServer).empty() && !Trim(p_.mail.MailFromAddress).empty()) return true;
    p_.windows.ShowMessage(kNoMailSettings);
    return false;
}

void ReportFiles::Mail(const std::vector<Attachment>& attachments, const char* nothingSelected) {
    p_.session.ClearAttachments();
    for (const auto& [path, name] : attachments) {
        p_.session.AttachmentPaths.push_back(path);
        p_.session.AttachmentNames.push_back(name);
    }
    if (attachments.empty())
        p_.windows.ShowMessage(nothingSelected);
    else
        ShowEmailForm();
}

}  // namespace qv
