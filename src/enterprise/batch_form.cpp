#include "enterprise/batch_form.h"

#include "controls/window_system.h"
#include "enterprise/enterprise_files.h"
#include "session/choose_folder.h"
#include "text/basic_text.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr const char* kNothingAdded = "No Documents or Sites Have Been Added Yet.";
constexpr const char* kNothingToSchedule = "No Documents or Sites Have Been Added In STEP 1 Yet. Add Them and Try Again.";
constexpr const char* kNoMail =
    "Before you select this option, you must enter your Email information in Quorvantis Preferences (Under the 'Edit' Menu).";

}  // namespace

BatchForm::BatchForm(Parts parts) : Form(parts.windows, "BatchForm", "Quorvantis Enterprise Check"), p_(parts) {
    SetSize(600, 600);
    SetCancelButton(&Command3);
    Option1.SetValue(true);
    Load = [this] { Form_Load(); };
    List1.MouseDown = [this](MouseButton button) {
        if (button == MouseButton::Left) List1.SetListIndex(-1);
    };
    Command1.Click = [this] { Command1_Click(); };
    Check1.Click = Check6.Click = [this] { EnableMailBox(); };
    Check7.Click = [this] { Check7_Click(); };
    Command6.Click = [this] { Command6_Click(); };
    Command7.Click = [this] { ShowLogManager(); };
    Check5.Click = [this] { Check5_Click(); };
    Command5.Click = [this] { Command5_Click(); };
    Command2.Click = [this] { SaveAndClose(true); };
    Command4.Click = [this] { SaveAndClose(false); };
    Command3.Click = [this] { Close(); };
}

// The boxes are set without what a user's click on them does.
void BatchForm::Form_Load() {
    Settings& s = p_.settings;
    Centre();
    s.EnterpriseList.clear();
    loading_ = true;
    Check6.SetValue(s.MakeHtmlLog != 0 ? 1 : 0);
    Check1.SetValue(s.MakeEventLog != 0 ? 1 : 0);
    Check7.SetValue(s.EmailLogs != 0 ? 1 : 0);
    if (s.ExitWhenComplete != 0) Option2.SetValue(true);
    if (s.LogFolder.size() < 3) s.LogFolder = p_.session.AppPath + "Logs\\";
    Text1.SetText(s.LogFolder);
    Check5.SetValue(p_.files.FileExists(p_.session.AppPath + "nwautogo.zdt") ? 1 : 0);
    loading_ = false;
    EnableMailBox();
    EnableAutoCheck();
    std::string bytes;
    if (p_.files.Read(p_.session.AppPath + "batchlst.zdt", bytes)) s.EnterpriseList = ParseEnterpriseList(bytes);
    FillList();
}

void BatchForm::FillList() {
    const auto& list = p_.settings.EnterpriseList;
    List1.Clear();
    if (list.empty()) return;
    const auto lines = EntryLines(list, p_.sites.ReadAll());
    for (std::size_t i = 0; i < list.size(); ++i) List1.AddItem(lines[i], LeadingInt16(list[i]).value_or(0));
}

void BatchForm::EnableMailBox() {
    if (!loading_) Check7.SetEnabled(Check1.Checked() || Check6.Checked());
}

void BatchForm::EnableAutoCheck() {
    for (Control* control : std::initializer_list<Control*>{&Command5, &Option1, &Option2}) control->SetEnabled(Check5.Checked());
}

void BatchForm::Check7_Click() {
    if (loading_ || !Check7.Checked()) return;
    if (!Trim(p_.mail.MailServer).empty() && !Trim(p_.mail.MailFromAddress).empty()) return;
    Windows().ShowMessage(kNoMail);
    Check7.SetValue(0);
}

void BatchForm::Check5_Click() {
    if (loading_) return;
    if (Check5.Checked() && List1.Count() == 0) {
        Windows().ShowMessage(kNothingAdded);
        Check5.SetValue(0);
        return;
    }
    Check5.SetCaption(Check5.Checked() ? "Auto-Check is O&N" : "Auto-Check is O&FF");
    EnableAutoCheck();
}

void BatchForm::Command1_Click() {
    if (!ShowSelectForm()) return;
    p_.files.Write(p_.session.AppPath + "batchlst.zdt", ComposeEnterpriseList(p_.settings.EnterpriseList));
    FillList();
}

void BatchForm::Command5_Click() {
    if (List1.Count() == 0 && Check5.Checked())
        Windows().ShowMessage(kNothingToSchedule);
    else
        ShowScheduleForm();
}

void BatchForm::Command6_Click() {
    const auto folder =
        ChooseFolder(Windows(), p_.files, "Locate Folder for Reports...", "Folders (*.)|*.", p_.settings.LogFolder);
    if (folder) Text1.SetText(*folder);
}

void BatchForm::SaveAndClose(bool begin) {
    Settings& s = p_.settings;
    if (List1.Count() == 0) {
        Windows().ShowMessage(kNothingAdded);
        return;
    }
    s.LogFolder = PathText(Trim(Text1.Text()));
    if (!EndsWith(s.LogFolder, "\\")) s.LogFolder += "\\";
    s.MakeEventLog = FlagOf(Check1.Checked());
    s.MakeHtmlLog = FlagOf(Check6.Checked());
    s.EmailLogs = FlagOf(Check7.Checked());
    s.ExitWhenComplete = FlagOf(Option2.Value());
    const std::string autoStart = p_.session.AppPath + "nwautogo.zdt";
    if (Check5.Checked())
        p_.files.Write(autoStart, ComposeEnterpriseSettings(s, kEmptyLinesOfAutoStart));
    else
        p_.files.Remove(autoStart);
    p_.files.Write(p_.session.AppPath + "newencfg.zdt", ComposeEnterpriseSettings(s, kEmptyLinesOfSettings));
    begin_ = begin;
    Close();
}

}  // namespace qv
