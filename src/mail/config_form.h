// The wizard that collects the server, the sender and the log-in of outgoing mail on four pages.
#pragma once

#include <array>

#include "controls/form.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "platform/files.h"
#include "session/session.h"

namespace qv {

class ConfigForm : public Form {
   public:
    ConfigForm(WindowSystem& windows, Files& files, const Session& session, MailSettings& mail);

    Frame Page0{*this, "Frame1", "Welcome To Zephon Quorvantis!", nullptr, 0};
    Label LabelWelcome;
    Frame Page1{*this, "Frame1", "SMTP (Email) Information", nullptr, 1};
    Label LabelSender;
    Label LabelMailServer{*this, "LabelMailServer", "SMTP server name or IP address (ie. mail.example.com):", &Page1};
    TextBox TextMailServer{*this, "TextMailServer", &Page1};
    Label LabelFromEmail{*this, "LabelFromEmail", "Email address for the sender header (ie. webmaster@example.com):", &Page1};
    TextBox TextFromEmail{*this, "TextFromEmail", &Page1};
    Label LabelFromName{*this, "LabelFromName", "Name for the sender header (ie. Web Master):", &Page1};
    TextBox TextFromName{*this, "TextFromName", &Page1};
    Frame Page2{*this, "Frame1", "SMTP Authentication [Optional]", nullptr, 2};
    Label LabelAuth;
    CheckBox CheckAuth{*this, "CheckAuth", "Use SMTP Authentication for emails", &Page2};
    Label LabelAuthName{*this, "LabelAuthName", "Authentication User Name:", &Page2};
    TextBox TextAuthName{*this, "TextAuthName", &Page2};
    Label LabelAuthPassword{*this, "LabelAuthPassword", "Authentication Password:", &Page2};
    TextBox TextAuthPassword{*this, "TextAuthPassword", &Page2};
    Frame Page3{*this, "Frame1", "", nullptr, 3};
    Label LabelDone{*this, "LabelDone",
                    "Congratulations! Quorvantis  is configured for sending Email. Click 'Finish' below to return.", &Page3};
    CommandButton ComBack{*this, "ComBack", "&Back"};
    CommandButton ComNext{*this, "ComNext", "&Next"};
    CommandButton ComFinish{*this, "ComFinish", "&Finish"};
    CommandButton ComCancel{*this, "ComCancel", "&Cancel"};

   private:
    void Form_Load();
    void ShowPage();
    void CheckActive();
    void CheckAuth_Click();
    void ComNext_Click();
    void ComBack_Click();
    void SaveConfigure();

    Files& files_;
    const Session& session_;
    MailSettings& mail_;
    std::int16_t page_ = 0;
};

}  // namespace qv
