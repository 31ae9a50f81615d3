#include "mail/config_form.h"

#include "controls/window_system.h"
#include "session/mail_settings_file.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr const char* kWelcome =
    "This version of Quorvantis allows you to automatically Email the Reports you generate. To configure the Email function, "
    "please fill in the information on the following pages. You can also click 'Cancel' and configure Quorvantis for Email "
    "later using the Preferences Window, available from the Edit Menu.";
constexpr const char* kSender =
    "To take advantage of the program's automatic email notification functions, Quorvantis needs to know your SMTP server name "
    "or IP address, as well as the name and email address that sent mail will be \"From\".";
constexpr const char* kAuthentication =
    "Today many email servers require you to supply your user name and password when you connect to send mail. If your server "
    "requires Authentication, check the box below and enter your User Name and Password.";
constexpr std::int16_t kLastPage = 3;

std::string Trimmed(const TextBox& box) { return std::string(Trim(box.Text())); }

}  // namespace

ConfigForm::ConfigForm(WindowSystem& windows, Files& files, const Session& session, MailSettings& mail)
    : Form(windows, "ConfigForm", "Zephon Quorvantis Configuration Wizard"),
      LabelWelcome(*this, "LabelWelcome", kWelcome, &Page0),
      LabelSender(*this, "LabelSender", kSender, &Page1),
      LabelAuth(*this, "LabelAuth", kAuthentication, &Page2),
      files_(files),
      session_(session),
      mail_(mail) {
    SetSize(520, 400);
    TextAuthPassword.SetMasked(true);
    SetCancelButton(&ComCancel);
    for (Control* control : std::initializer_list<Control*>{&LabelAuthName, &TextAuthName, &LabelAuthPassword, &TextAuthPassword})
        control->SetEnabled(false);
    Load = [this] { Form_Load(); };
    ComNext.Click = [this] { ComNext_Click(); };
    ComBack.Click = [this] { ComBack_Click(); };
    ComFinish.Click = [this] {
        SaveConfigure();
        Close();
    };
    ComCancel.Click = [this] { Close(); };
    CheckAuth.Click = [this] { CheckAuth_Click(); };
    for (TextBox* box : {&TextMailServer, &TextFromEmail, &TextFromName, &TextAuthName, &TextAuthPassword})
        box->KeyUp = [this](Key) { CheckActive(); };
    for (TextBox* box : {&TextMailServer, &TextFromEmail, &TextFromName}) box->GotFocus = [box] { box->SelectAll(); };
}

void ConfigForm::Form_Load() {
    Centre();
    ReadMailSettings(files_, session_.AppPath, mail_);
    TextMailServer.SetText(mail_.MailServer);
    TextFromEmail.SetText(mail_.MailFromAddress);
    TextFromName.SetText(mail_.MailFromName);
    TextAuthName.SetText(mail_.MailAuthName);
    TextAuthPassword.SetText(mail_.MailAuthPassword);
    if (mail_.MailAuthRequired == "Yes") CheckAuth.SetValue(1);
    Activate = [this] {
        Activate = nullptr;
        ShowPage();
    };
    ShowPage();
}

void ConfigForm::ShowPage() {
    const std::array<Frame*, 4> pages = {&Page0, &Page1, &Page2, &Page3};
    for (std::size_t i = 0; i < pages.size(); ++i) pages[i]->SetVisible(static_cast<std::int16_t>(i) == page_);
    ComBack.SetEnabled(page_ == 1 || page_ == 2);
    ComFinish.SetEnabled(page_ == kLastPage);  // before Next goes and leaves it the focus
    ComNext.SetEnabled(page_ != kLastPage);
    SetDefaultButton(page_ == kLastPage ? &ComFinish : &ComNext);
    CheckActive();
    if (page_ == 0) ComNext.SetFocus();
    if (page_ == 1) TextMailServer.SetFocus();
    if (page_ == 2 && CheckAuth.Checked())
        TextAuthName.SetFocus();
    else if (page_ == 2)
        CheckAuth.SetFocus();
}

void ConfigForm::CheckActive() {
    if (page_ == 1)
        ComNext.SetEnabled(!Trimmed(TextMailServer).empty() && !Trimmed(TextFromEmail).empty() && !Trimmed(TextFromName).empty());
    if (page_ == 2)
        ComNext.SetEnabled(!CheckAuth.Checked() || (!Trimmed(TextAuthName).empty() && !Trimmed(TextAuthPassword).empty()));
    if (page_ == 1 || page_ == 2) ComFinish.SetEnabled(false);
}

void ConfigForm::CheckAuth_Click() {
    for (Control* control : std::initializer_list<Control*>{&LabelAuthName, &TextAuthName, &LabelAuthPassword, &TextAuthPassword})
        control->SetEnabled(CheckAuth.Checked());
    CheckActive();
}

void ConfigForm::ComNext_Click() {
    if (page_ < kLastPage) ++page_;
    ShowPage();
}

void ConfigForm::ComBack_Click() {
    if (page_ > 0) --page_;
    ShowPage();
}

void ConfigForm::SaveConfigure() {
    mail_.MailServer = Trimmed(TextMailServer);
    mail_.MailFromName = Trimmed(TextFromName);
    mail_.MailFromAddress = Trimmed(TextFromEmail);
    if (CheckAuth.Checked()) {
        const bool noName = Trimmed(TextAuthName).empty();
        if (noName || Trimmed(TextAuthPassword).empty()) {
            Windows().ShowMessage(noName ? "Invalid Authentication User Name." : "Invalid Authentication Password.");
            return;
        }
        mail_.MailAuthRequired = "Yes";
        mail_.MailAuthName = Trimmed(TextAuthName);
        mail_.MailAuthPassword = Trimmed(TextAuthPassword);
    } else {
        mail_.MailAuthRequired = "No";
    }
    WriteMailSettings(files_, session_.AppPath, mail_);
}

}  // namespace qv
