#include "reports/report_manager_form.h"

#include "session/choose_folder.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr const char* kNothingCurrent = "Please select a File Name first.";

std::vector<std::string>& NamesOf(ReportLists& lists, std::int16_t kind) {
    switch (kind) {
        case kTextList: return lists.TextReportNames;
        case kAsciiList: return lists.AsciiReportNames;
        case kHtmlList: return lists.HtmlReportNames;
        default: return lists.AllReportNames;
    }
}

}  // namespace

ReportManagerForm::ReportManagerForm(Parts parts)
    : Form(parts.windows, "ReportManagerForm", "Quorvantis Reports Manager"), p_(parts) {
    SetSize(560, 440);
    SetDefaultButton(&ComShow);
    SetCancelButton(&ComClose);
    Load = [this] { Form_Load(); };
    for (OptionButton* option : {&TextReports, &AsciiReports, &HtmlReports, &AllReports})
        option->Click = [this, kind = static_cast<std::int16_t>(option->Index())] { ComReports_Click(kind); };
    List1.Click = [this] { ShowButtons(); };
    List1.DblClick = ComShow.Click = [this] { ComShow_Click(); };
    ComEmail.Click = [this] { ComEmail_Click(); };
    Command1.Click = [this] { Delete_Click(); };
    ComBrowse.Click = [this] { ComBrowse_Click(); };
    ComClose.Click = [this] { Close(); };
}

void ReportManagerForm::Form_Load() {
    Centre();
    List1.Clear();
    LabelPath.SetCaption(p_.session.AppPath + (Logs() ? "Logs\\" : "Reports\\"));
    if (Logs()) {
        SetCaption("Quorvantis Logs Manager");
        Frame1.SetVisible(false);
        ComShow.SetCaption("Sh&ow Log");
        ComEmail.SetCaption("&Email Log(s)");
        Command1.SetCaption("&Delete Log(s)");
    }
    GetReportFiles();
    ShowAllReports();
}

void ReportManagerForm::TakeFiles(const char* mask, std::vector<std::string>& names) {
    const std::string& folder = LabelPath.Caption();
    for (const auto& name : p_.files.List(folder, mask)) {
        if (!p_.files.FileExists(folder + name)) continue;
        names.push_back(Lower(name));
        p_.session.AllReportNames.push_back(Lower(name));
        const std::size_t kind = &names == &p_.session.TextReportNames ? 0 : &names == &p_.session.AsciiReportNames ? 1 : 2;
        realNames_[kind].push_back(name);
        realNames_[kAllList].push_back(name);
    }
}

void ReportManagerForm::GetReportFiles() {
    SetPointer(Pointer::Wait);
    p_.session.ClearNames();
    for (auto& names : realNames_) names.clear();
    if (Logs()) {
        TakeFiles("*_Log.*", p_.session.HtmlReportNames);
    } else {
        TakeFiles("*_text.*", p_.session.TextReportNames);
        TakeFiles("*_ascii.*", p_.session.AsciiReportNames);
        TakeFiles("*_html.*", p_.session.HtmlReportNames);
    }
    SetPointer(Pointer::Default);
}

void ReportManagerForm::ComReports_Click(std::int16_t kind) {
    if (p_.flags.IgnoreControlEvents != 0) return;
    List1.Clear();
    p_.flags.IgnoreControlEvents = kSet;
    for (OptionButton* option : {&TextReports, &AsciiReports, &HtmlReports, &AllReports})
        if (option->Index() != kind) option->SetValue(false);
    for (const auto& name : NamesOf(p_.session, kind)) List1.AddItem(name);
    p_.session.ReportListKind = kind;
    List1.SetListIndex(0);
    List1.SetSelected(0, true);
    p_.flags.IgnoreControlEvents = kClear;
    ShowButtons();
}

// The option's handler runs also when it is chosen already.
void ReportManagerForm::ShowAllReports() {
    if (AllReports.Value()) {
        p_.flags.IgnoreControlEvents = kSet;
        AllReports.SetValue(false);
        p_.flags.IgnoreControlEvents = kClear;
    }
    AllReports.SetValue(true);
    ShowButtons();
}

void ReportManagerForm::ShowButtons() {
    const bool usable = List1.Count() > 0 && List1.ListIndex() >= 0;
    for (CommandButton* button : {&ComShow, &ComEmail, &Command1}) button->SetEnabled(usable);
}

std::string ReportManagerForm::FileOf(int row) const {
    const auto& names = realNames_[static_cast<std::size_t>(p_.session.ReportListKind)];
    const auto i = static_cast<std::size_t>(row);
    return LabelPath.Caption() + (i < names.size() ? names[i] : List1.Text(row));
}

void ReportManagerForm::ComShow_Click() {
    const int row = List1.ListIndex();
    if (row < 0) {
        Windows().ShowMessage(kNothingCurrent);
        return;
    }
    const std::string path = FileOf(row);
    const auto nameStart = path.rfind('\\') + 1;
    p_.reports.Show(p_.session.ReportListKind, path.substr(0, nameStart), path.substr(nameStart));
}

void ReportManagerForm::ComEmail_Click() {
    if (!p_.reports.CanMail()) return;
    std::vector<ReportFiles::Attachment> attachments;
    for (int row = 0; row < List1.Count(); ++row)
        if (List1.Selected(row)) attachments.push_back({FileOf(row), List1.Text(row)});
    p_.reports.Mail(attachments,
                    Logs() ? "Please select the Logs you wish to send." : "Please select the Reports you wish to send.");
}

void ReportManagerForm::Delete_Click() {
    if (List1.ListIndex() < 0) {
        Windows().ShowMessage(kNothingCurrent);
        return;
    }
    const std::string answer = Windows().ShowMessage({.text = "Are you sure you want to delete the selected items?",
                                                      .buttons = {"Yes", "No"},
                                                      .defaultButton = "Yes",
                                                      .question = true});
    if (answer != "Yes") return;
    for (int row = 0; row < List1.Count(); ++row)
        if (List1.Selected(row)) p_.files.Remove(FileOf(row));
    GetReportFiles();
    ShowAllReports();
}

void ReportManagerForm::ComBrowse_Click() {
    const auto folder = ChooseFolder(Windows(), p_.files, "Select Folder...", "Folders (*.)|*.", LabelPath.Caption());
    if (!folder) return;
    LabelPath.SetCaption(*folder);
    GetReportFiles();
    ShowAllReports();
}

}  // namespace qv
