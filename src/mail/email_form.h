// The dialog that mails files which have been chosen already.
#pragma once

#include <string>

#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "mail/address_book.h"
#include "mail/mail_sender.h"
#include "platform/files.h"
#include "session/session.h"

namespace qv {

class EmailForm : public Form, public MailDialog {
   public:
    struct Parts {
        WindowSystem& windows;
        Files& files;
        const Session& session;  // with the attachments
        MailSettings& mail;
        AddressBook& book;
        RunFlags& flags;
        MailSender& sender;
        EventLoop& loop;
    };
    explicit EmailForm(Parts parts);
    ~EmailForm() override;

    Label LabelTo{*this, "LabelTo", "Mail To:"};
    ComboBox TextTo{*this, "TextTo"};
    CommandButton ComAdd{*this, "ComAdd", "&Add"};
    Label LabelCC{*this, "LabelCC", "Copy To:"};
    ListBox ListCC{*this, "ListCC", ListBox::SelectionKind::Multiple};
    Label LabelHint{*this, "LabelHint", "Select and hit Delete to remove addresses."};
    CheckBox CheckBCC{*this, "CheckBCC", "Bcc"};
    Label LabelSubject{*this, "LabelSubject", "Message Subject:"};
    TextBox Subject{*this, "Text", nullptr, 3};
    Label LabelText{*this, "LabelText", "Message Text:"};
    TextBox Body{*this, "Text", nullptr, 4};
    CheckBox CheckComments{*this, "CheckComments", "Include Comments"};
    Label LabelReports{*this, "LabelReports", "Attached Reports:"};
    ListBox List1{*this, "List1", ListBox::SelectionKind::Multiple};
    Frame FrameProgress{*this, "FrameProgress", " Email Progress "};
    Label LabelProgess{*this, "LabelProgess", "", &FrameProgress};
    CommandButton ComSend{*this, "ComSend", "&Send"};
    CommandButton ComCancel{*this, "ComCancel", "&Cancel"};
    CommandButton ComHelp{*this, "ComHelp", "&Help"};

    bool BlindCopies() const override { return CheckBCC.Checked(); }
    void ShowProgress(const std::string& text) override { LabelProgess.SetCaption(text); }

   private:
    void Form_Load();
    void Form_KeyDown(Key key);
    void TextTo_Click();
    void ListCC_Click();
    void List1_Click();
    void ComAdd_Click();
    void ComSend_Click();
    bool Refused(const std::string& text, const char* message, Control& field);
    void DeleteAddresses();
    void DeleteReports();
    void FillCopies();
    std::string SelectedCopies() const;

    Parts p_;
    bool cancelled_ = false;
    bool sending_ = false;
};

}  // namespace qv
