#include "sitedb/default_form.h"

#include "platform/files.h"
#include "session/choose_folder.h"
#include "session/mail_settings_file.h"
#include "session/program_settings.h"
#include "text/basic_text.h"

namespace qv {
namespace {

std::string Trimmed(const TextBox& box) { return std::string(Trim(box.Text())); }

}  // namespace

DefaultForm::DefaultForm(Parts parts) : Form(parts.windows, "DefaultForm", "Quorvantis Preferences"), p_(parts) {
    SetSize(640, 520);
    for (TextBox* box : {&TextPassword, &Text10, &TextAuthPassword}) box->SetMasked(true);
    SetDefaultButton(&ComOpenNext);
    SetCancelButton(&ComCloseCancel);
    Connect();
}

void DefaultForm::Connect() {
    Load = [this] { Form_Load(); };
    TabStrip1.BeforeClick = [this](bool& refused) {
        Flag flag = kClear;
        const int tab = TabStrip1.Value();
        if (tab == 1) CheckTabOne(flag);
        if (tab == 2) CheckTabTwo(flag);
        if (tab == 3) CheckTabThree(flag);
        if (tab == 4) CheckTabFour(flag);
        refused = flag != 0;
    };
    TabStrip1.Click = [this] { ShowPage(TabStrip1.Value()); };
    const auto group = [this](CheckBox& box, std::initializer_list<Control*> controls, TextBox& first) {
        box.Click = [this, &box, members = std::vector<Control*>(controls), &first] {
            if (p_.flags.IgnoreControlEvents != 0) return;
            for (Control* control : members) control->SetEnabled(box.Checked());
            if (TabStrip1.Value() == 3) first.SetFocus();
        };
    };
    group(Check4, {&Label15, &Text9, &Label16, &Text10}, Text9);
    group(Check5, {&Label13, &TextUserName, &Label14, &TextPassword}, TextUserName);
    group(Check6, {&Label17, &TextServer, &Label18, &TextPort}, TextServer);
    CheckAuth.Click = [this] {
        EnableAll({&LabelAuthName, &TextAuthName, &LabelAuthPassword, &TextAuthPassword}, CheckAuth.Checked());
    };
    Command6.Click = [this] { Browse("Locate Web Browser...", Text1, &ProgramSettings::BrowserPath); };
    ComBrowse.Click = [this] { Browse("Locate HTML Editor...", Text3, &ProgramSettings::EditorPath); };
    Command2.Click = [this] { Browse("Locate HTML Source Viewer...", Text2, &ProgramSettings::SourceViewerPath); };
    Command9.Click = [this] { BrowseFolder(); };
    Command1.Click = [this] { SetDefaults(); };
    Command3.Click = [this] { AddText(); };
    Command5.Click = [this] { DeleteText(); };
    Command7.Click = [this] { TextUserAgent.SetText(""); };
    ComOpenNext.Click = [this] { ComOpenNext_Click(); };
    ComCloseCancel.Click = [this] { ComCloseCancel_Click(); };
}

void DefaultForm::Form_Load() {
    Centre();
    listIndex_ = p_.txtFileName.ListIndex();
    ShowPage(1);
    record_ = p_.preferences.Stored();
    ShowPrograms();
    ShowOpenSettings();
    ShowAuthorization();
    ShowMail();
    ShowReports();
}

void DefaultForm::ShowPage(int tab) {
    TabStrip1.SetValue(tab);
    int number = 1;
    for (Frame* page : {&Page1, &Page2, &Page3, &Page4}) page->SetVisible(number++ == tab);
}

void DefaultForm::ShowPrograms() {
    const Settings& s = p_.settings;
    Text1.SetText(s.BrowserPath);
    Text3.SetText(s.EditorPath);
    Text2.SetText(s.SourceViewerPath);
    CheckAuto.SetValue(s.AutoCheckLinks);
    CheckIgnoreRemote.SetValue(s.RemoteLinksNotChecked);
    Check7.SetValue(s.ShowToolHints);
    CheckRedirect.SetValue(s.PersistentRedirectsOk);
}

void DefaultForm::ShowOpenSettings() {
    Text5.SetText(BetweenBlanks(record_.Text(field::DocumentTypes)));
    Text4.SetText(BetweenBlanks(record_.Text(field::IgnoreOpenPaths)));
    Text6.SetText(BetweenBlanks(record_.Text(field::IgnoreLinkPaths)));
    ShowIgnoreTexts(record_, ComboTextIgnore);
    Check1.SetValue(record_.Number(field::IncludeImages));
    Check2.SetValue(record_.Number(field::IgnoreJavaScript));
    Check3.SetValue(record_.Number(field::FollowRedirects));
    Text8.SetText(std::to_string(record_.Number(field::HttpTimeout)));
}

void DefaultForm::ShowAuthorization() {
    p_.flags.IgnoreControlEvents = kSet;
    const auto show = [this](NumberField flag, CheckBox& box, std::initializer_list<Control*> labels, TextBox& first,
                             TextField firstField, TextBox& second, TextField secondField) {
        const bool on = record_.IsSet(flag);
        box.SetValue(on);
        first.SetText(on ? record_.Text(firstField) : "");
        second.SetText(on ? record_.Text(secondField) : "");
        EnableAll(labels, on);
        first.SetEnabled(on);
        second.SetEnabled(on);
    };
    show(field::UseProxy, Check6, {&Label17, &Label18}, TextServer, field::ProxyServerName, TextPort, field::ProxyPortText);
    show(field::UseHttpAuthentication, Check5, {&Label13, &Label14}, TextUserName, field::HttpUserName, TextPassword,
         field::HttpPassword);
    show(field::CheckFtpLinks, Check4, {&Label15, &Label16}, Text9, field::FtpUserName, Text10, field::FtpPassword);
    TextUserAgent.SetText(record_.Text(field::UserAgent));
    p_.flags.IgnoreControlEvents = kClear;
}

void DefaultForm::ShowMail() {
    ReadMailSettings(p_.files, p_.session.AppPath, p_.mail);
    TextMailServer.SetText(p_.mail.MailServer);
    TextFromName.SetText(p_.mail.MailFromName);
    TextFromEmail.SetText(p_.mail.MailFromAddress);
    TextAuthName.SetText(p_.mail.MailAuthName);
    TextAuthPassword.SetText(p_.mail.MailAuthPassword);
    CheckAuth.SetValue(p_.mail.MailAuthRequired == "Yes");
    CheckAuth.Click();
}

void DefaultForm::ShowReports() {
    RepairReportFields(record_, p_.settings.ReportFolder);
    const std::pair<CheckBox*, NumberField> boxes[] = {{&Check13, field::MakeTextReport},   {&Check12, field::MakeAsciiReport},
                                                       {&Check11, field::MakeHtmlReport},   {&CheckWhich, field::QuestionableOnly},
                                                       {&Check8, field::EmailReports},      {&Check9, field::CopyMeOnReports}};
    for (const auto& [box, flag] : boxes) box->SetValue(record_.Number(flag));
    TextReportPath.SetText(record_.Text(field::ReportFolder));
}

void DefaultForm::SetDefaults() {
    const SiteRecord defaults = DefaultRecord(p_.session.AppPath);
    for (const TextField text : {field::FormatVersion, field::SiteUrl, field::SiteFileName, field::SiteFolder, field::DocumentTypes,
                                 field::IgnoreOpenPaths, field::IgnoreLinkPaths, field::ProxyServerName, field::ProxyPortText,
                                 field::HttpUserName, field::HttpPassword, field::UserAgent, field::FtpUserName, field::FtpPassword})
        record_.SetText(text, defaults.RawText(text));
    for (const NumberField number : {field::IncludeImages, field::IgnoreJavaScript, field::FollowRedirects, field::CheckFtpLinks,
                                     field::HttpTimeout, field::UseProxy, field::UseHttpAuthentication})
        record_.SetNumber(number, defaults.Number(number));
    for (std::size_t slot = 0; slot <= kIgnoreTextSlots; ++slot) record_.SetText(field::IgnoreText(slot), "");
    ShowOpenSettings();
    ShowAuthorization();
}

bool DefaultForm::Refuse(const char* message, Control& field) {
    p_.windows.ShowMessage(message);
    field.SetFocus();
    return false;
}

void DefaultForm::CheckTabOne(Flag& refused) { refused = kClear; }

void DefaultForm::CheckTabTwo(Flag& refused) {
    refused = kClear;
    record_.SetNumber(field::IncludeImages, FlagOf(Check1.Checked()));
    record_.SetNumber(field::IgnoreJavaScript, FlagOf(Check2.Checked()));
    record_.SetNumber(field::FollowRedirects, FlagOf(Check3.Checked()));
    record_.SetText(field::DocumentTypes, BetweenBlanks(Text5.Text()));
    record_.SetText(field::IgnoreOpenPaths, BetweenBlanks(Text4.Text()));
    record_.SetText(field::IgnoreLinkPaths, BetweenBlanks(Text6.Text()));
    StoreIgnoreTexts(ComboTextIgnore, record_);
    record_.SetNumber(field::HttpTimeout, TimeoutOf(Text8.Text()));
}

bool DefaultForm::Passes(const LogInGroup& group, const char* message) {
    Control* missing = StoreLogIn(group, record_);
    return missing == nullptr || Refuse(message, *missing);
}

void DefaultForm::CheckTabThree(Flag& refused) {
    const bool passed =
        Passes({Check6, field::UseProxy, TextServer, field::ProxyServerName, TextPort, field::ProxyPortText, true},
               "Proxy Server Name and Port Number are required.") &&
        Passes({Check5, field::UseHttpAuthentication, TextUserName, field::HttpUserName, TextPassword, field::HttpPassword},
               "Valid User Name and Password are required.") &&
        Passes({Check4, field::CheckFtpLinks, Text9, field::FtpUserName, Text10, field::FtpPassword},
               "Valid FTP User Name and Password are required.");
    refused = FlagOf(!passed);
    if (passed) record_.SetText(field::UserAgent, Trimmed(TextUserAgent));
}

bool DefaultForm::StoreMail() {
    p_.mail.MailServer = Trimmed(TextMailServer);
    p_.mail.MailFromName = Trimmed(TextFromName);
    p_.mail.MailFromAddress = Trimmed(TextFromEmail);
    if (CheckAuth.Checked()) {
        if (TextAuthName.Text().empty()) return Refuse("Invalid Authentication User Name.", TextAuthName);
        if (TextAuthPassword.Text().empty()) return Refuse("Invalid Authentication Password.", TextAuthPassword);
        p_.mail.MailAuthName = TextAuthName.Text();
        p_.mail.MailAuthPassword = TextAuthPassword.Text();
    }
    p_.mail.MailAuthRequired = CheckAuth.Checked() ? "Yes" : "No";
    WriteMailSettings(p_.files, p_.session.AppPath, p_.mail);
    return true;
}

void DefaultForm::CheckTabFour(Flag& refused) {
    refused = FlagOf(!StoreMail());
    if (refused != 0) return;
    const std::pair<CheckBox*, NumberField> boxes[] = {{&Check13, field::MakeTextReport},   {&Check12, field::MakeAsciiReport},
                                                       {&Check11, field::MakeHtmlReport},   {&CheckWhich, field::QuestionableOnly},
                                                       {&Check8, field::EmailReports},      {&Check9, field::CopyMeOnReports}};
    for (const auto& [box, flag] : boxes) record_.SetNumber(flag, FlagOf(box->Checked()));
    record_.SetText(field::ReportFolder, PathText(Trimmed(TextReportPath)));
}

// A helper that isn't there becomes the system's.
void DefaultForm::TakePrograms() {
    Settings& s = p_.settings;
    s.AutoCheckLinks = FlagOf(CheckAuto.Checked());
    s.RemoteLinksNotChecked = FlagOf(CheckIgnoreRemote.Checked());
    s.ShowToolHints = FlagOf(Check7.Checked());
    s.PersistentRedirectsOk = FlagOf(CheckRedirect.Checked());
    s.BrowserPath = PathText(Trimmed(Text1));
    s.EditorPath = PathText(Trimmed(Text3));
    s.SourceViewerPath = PathText(Trimmed(Text2));
    for (std::string* path : {&s.EditorPath, &s.SourceViewerPath})
        if (!p_.programs.Exists(*path)) *path = p_.session.WindowsFolder + "notepad.exe";
}

void DefaultForm::ComOpenNext_Click() {
    Flag refused = kClear;
    CheckTabTwo(refused);
    if (refused == 0) CheckTabThree(refused);
    if (refused == 0) CheckTabOne(refused);
    if (refused == 0) CheckTabFour(refused);
    if (refused != 0) return;
    p_.preferences.SetRecord(record_);
    p_.preferences.Write();
    TakePrograms();
    WriteProgramSettings(p_.files, p_.session, p_.settings, p_.mainWindow);
    if (SettingsChanged) SettingsChanged();
    Close();
}

void DefaultForm::ComCloseCancel_Click() {
    if (p_.session.WizardFromList != 0) p_.txtFileName.SetListIndex(p_.session.WizardListIndex);
    p_.session.WizardCancelled = kSet;
    Close();
}

void DefaultForm::Browse(const char* title, TextBox& box, std::string ProgramSettings::*path) {
    const std::string& present = box.Text();
    const auto answer = p_.windows.ShowFileDialog({.title = title,
                                                   .filter = "Program Files (*.exe)|*.exe",
                                                   .name = "",
                                                   .folder = present.substr(0, present.rfind('\\') + 1)});
    if (!answer) return;
    p_.settings.*path = *answer;
    box.SetText(*answer);
}

void DefaultForm::BrowseFolder() {
    const auto folder =
        ChooseFolder(p_.windows, p_.files, "Locate Folder for Reports...", "Folders (*.)|*.", TextReportPath.Text());
    if (folder) TextReportPath.SetText(*folder);
}

void DefaultForm::AddText() {
    if (!AddItemOfText(ComboTextIgnore, static_cast<int>(kIgnoreTextSlots)))
        p_.windows.ShowMessage("Only 10 text strings are allowed. Delete an existing string to add another.");
    ComboTextIgnore.SetFocus();
}

void DefaultForm::DeleteText() {
    RemoveItemOfText(ComboTextIgnore);
    ComboTextIgnore.SetFocus();
}

}  // namespace qv
