#include "reports/frmform.h"

#include <array>
#include <utility>

#include "reports/report_options.h"
#include "session/choose_folder.h"
#include "text/basic_text.h"

namespace qv {
namespace {

// Checking one of the two clears and disables the other; clearing it gives the other back.
void Exclude(const CheckBox& box, CheckBox& other) {
    if (box.Checked()) other.SetValue(0);
    other.SetEnabled(!box.Checked());
}

}  // namespace

frmform::frmform(Parts parts) : Form(parts.windows, "frmform", "Create Link Check Reports"), p_(parts) {
    SetSize(460, 320);
    SetDefaultButton(&cmdOK);
    SetCancelButton(&cmdCancel);
    Load = [this] { Form_Load(); };
    Activate = [this] { Form_Activate(); };
    CheckAllInOne.Click = [this] { Exclude(CheckAllInOne, CheckOneOnly); };
    CheckOneOnly.Click = [this] { Exclude(CheckOneOnly, CheckAllInOne); };
    ComBrowse.Click = [this] { ComBrowse_Click(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
}

std::string frmform::FolderOrDefault(std::string folder) const {
    if (!p_.files.FolderExists(folder)) return p_.session.AppPath + "Reports\\";
    if (!EndsWith(folder, "\\")) folder += "\\";
    return folder;
}

void frmform::Form_Load() {
    Settings& s = p_.settings;
    Centre();
    ReadReportOptions(p_.files, p_.session.AppPath, s);
    s.ReportFolder = FolderOrDefault(s.ReportFolder);
    const std::pair<CheckBox*, Flag> boxes[] = {{&CheckText, s.SaveTextReport},      {&CheckAscii, s.SaveAsciiReport},
                                                {&CheckHTML, s.SaveHtmlReport},      {&CheckWhich, s.QuestionableOnly},
                                                {&CheckAllInOne, s.SaveAllInOne},    {&CheckOneOnly, s.SaveOneOnly}};
    for (const auto& [box, flag] : boxes) box->SetValue(flag != 0 ? 1 : 0);
    txtFileName.SetText(s.ReportFolder);
}

void frmform::Form_Activate() {
    if (std::exchange(activated_, true)) return;
    txtFileName.SetFocus();
    txtFileName.SelectAll();
}

void frmform::ComBrowse_Click() {
    const auto folder =
        ChooseFolder(Windows(), p_.files, "Locate Folder for Reports...", "Folders (*.)|*.", p_.settings.ReportFolder);
    if (folder) txtFileName.SetText(*folder);
}

void frmform::cmdOK_Click() {
    Settings& s = p_.settings;
    s.ReportFolder = FolderOrDefault(PathText(Trim(txtFileName.Text())));
    s.SaveTextReport = FlagOf(CheckText.Checked());
    s.SaveAsciiReport = FlagOf(CheckAscii.Checked());
    s.SaveHtmlReport = FlagOf(CheckHTML.Checked());
    s.SaveAllInOne = FlagOf(CheckAllInOne.Checked());
    s.SaveOneOnly = FlagOf(CheckOneOnly.Checked());
    s.QuestionableOnly = FlagOf(CheckWhich.Checked());
    WriteReportOptions(p_.files, p_.session.AppPath, s);
    okay_ = true;
    Close();
}

void frmform::cmdCancel_Click() {
    txtFileName.SetText("");
    Close();
}

}  // namespace qv
