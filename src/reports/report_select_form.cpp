#include "reports/report_select_form.h"

namespace qv {

ReportSelectForm::ReportSelectForm(Parts parts)
    : Form(parts.windows, "ReportSelectForm", "Quorvantis Reports Viewer"), p_(parts) {
    SetSize(480, 360);
    SetDefaultButton(&ComShow);
    SetCancelButton(&ComClose);
    Load = [this] { Form_Load(); };
    for (OptionButton* option : {&TextReports, &AsciiReports, &HtmlReports}) {
        option->SetEnabled(false);
        option->Click = [this, kind = static_cast<std::int16_t>(option->Index())] { ComReports_Click(kind); };
    }
    List1.DblClick = ComShow.Click = [this] { ComShow_Click(); };
    Command1.Click = [this] { Email_Click(); };
    ComClose.Click = [this] { Close(); };
}

void ReportSelectForm::Form_Load() {
    Centre();
    const std::pair<OptionButton*, const std::vector<std::string>*> lists[] = {{&TextReports, &p_.session.TextReportNames},
                                                                               {&AsciiReports, &p_.session.AsciiReportNames},
                                                                               {&HtmlReports, &p_.session.HtmlReportNames}};
    OptionButton* first = nullptr;
    for (const auto& [option, names] : lists) {
        if (names->empty()) continue;
        option->SetEnabled(true);
        if (first == nullptr) first = option;
    }
    if (first != nullptr) first->SetValue(true);
}

void ReportSelectForm::ComReports_Click(std::int16_t kind) {
    if (p_.flags.IgnoreControlEvents != 0) return;
    List1.Clear();
    p_.flags.IgnoreControlEvents = kSet;
    for (OptionButton* option : {&TextReports, &AsciiReports, &HtmlReports})
        if (option->Index() != kind) option->SetValue(false);
    p_.flags.IgnoreControlEvents = kClear;
    const ReportLists& lists = p_.session;
    const auto& names = kind == kTextList    ? lists.TextReportNames
                        : kind == kAsciiList ? lists.AsciiReportNames
                                             : lists.HtmlReportNames;
    for (const auto& name : names) List1.AddItem(name);
    List1.SetListIndex(0);
    p_.session.ReportListKind = kind;
}

const std::string& ReportSelectForm::Folder() const {
    return p_.session.ViewerFolderChoice == 1 ? p_.settings.ReportFolder : p_.settings.LogFolder;
}

void ReportSelectForm::ComShow_Click() {
    if (List1.ListIndex() < 0)
        Windows().ShowMessage("Please select a Report File Name first.");
    else
        p_.reports.Show(p_.session.ReportListKind, Folder(), List1.Text(List1.ListIndex()));
}

void ReportSelectForm::Email_Click() {
    if (!p_.reports.CanMail()) return;
    std::vector<ReportFiles::Attachment> attachments;
    for (int row = 0; row < List1.Count(); ++row)
        if (List1.Selected(row)) attachments.push_back({Folder() + p_.files.RealName(Folder(), List1.Text(row)), List1.Text(row)});
    p_.reports.Mail(attachments, "Please select the Reports you wish to send.");
}

}  // namespace qv
