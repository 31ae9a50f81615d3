#include "mail/email_form.h"

#include <vector>

#include "controls/window_system.h"
#include "session/mail_settings_file.h"
#include "text/basic_text.h"
#include "text/numbers.h"

namespace qv {
namespace {

std::string Trimmed(const std::string& text) { return std::string(Trim(text)); }

void Unselect(ListBox& list) {
    if (list.ListIndex() < 0) return;
    list.SetListIndex(-1);
    for (int row = 0; row < list.Count(); ++row) list.SetSelected(row, false);
}

// Keeps the handlers of the lists quiet while one of them works.
class Quiet {
   public:
    explicit Quiet(RunFlags& flags) : flags_(flags) { flags_.IgnoreControlEvents = kSet; }
    ~Quiet() { flags_.IgnoreControlEvents = kClear; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

   private:
    RunFlags& flags_;
};

}  // namespace

EmailForm::EmailForm(Parts parts) : Form(parts.windows, "EmailForm", "Zephon Quorvantis Reports Emailer"), p_(parts) {
    SetSize(600, 560);
    Body.SetMultiLine(true);
    FrameProgress.SetVisible(false);
    SetCancelButton(&ComCancel);
    Load = [this] { Form_Load(); };
    Unload = [this](bool& refused) {
        refused = sending_;
        if (!refused) p_.sender.dialog = nullptr;
    };
    Activate = [this] {
        Activate = nullptr;
        Subject.SetFocus();
    };
    KeyDown = [this](Key key) { Form_KeyDown(key); };
    for (TextBox* box : {&Subject, &Body}) box->GotFocus = [box] { box->SelectAll(); };
    TextTo.GotFocus = [this] { TextTo.SelectAll(); };
    TextTo.Click = [this] { TextTo_Click(); };
    ListCC.Click = [this] { ListCC_Click(); };
    List1.Click = [this] { List1_Click(); };
    ComAdd.Click = [this] { ComAdd_Click(); };
    ComSend.Click = [this] { ComSend_Click(); };
    ComCancel.Click = [this] {
        cancelled_ = true;
        Close();
    };
}

EmailForm::~EmailForm() {
    if (p_.sender.dialog == this) p_.sender.dialog = nullptr;
}

void EmailForm::Form_Load() {
    Centre();
    ReadMailSettings(p_.files, p_.session.AppPath, p_.mail);
    p_.sender.dialog = this;
    TextTo.SetText(p_.mail.MailTo);
    Subject.SetText(p_.mail.MailSubject);
    Body.SetText(p_.mail.MailBody);
    CheckComments.SetValue(LeadingNumber(p_.mail.MailIncludeComments) != 0 ? 1 : 0);
    ExchangeAddressBook(p_.files, p_.session.AppPath, p_.book, 1);
    for (const auto& entry : p_.book) {
        TextTo.AddItem(entry.Address);
        ListCC.AddItem(entry.Address);
    }
    for (int item = 0; item < TextTo.Count(); ++item)
        if (TextTo.ItemText(item) == p_.mail.MailTo) TextTo.SetListIndex(item);
    for (const auto& name : p_.session.AttachmentNames) List1.AddItem(Trimmed(name));
}

void EmailForm::TextTo_Click() {
    if (p_.flags.IgnoreControlEvents != 0) return;
    const Quiet quiet(p_.flags);
    ListCC.SetListIndex(-1);
}

void EmailForm::List1_Click() {
    if (p_.flags.IgnoreControlEvents != 0) return;
    const Quiet quiet(p_.flags);
    Unselect(ListCC);
}

// Who gets the mail can't get a copy of it too.
void EmailForm::ListCC_Click() {
    if (p_.flags.IgnoreControlEvents != 0) return;
    const Quiet quiet(p_.flags);
    Unselect(List1);
    const std::string recipient = Trimmed(TextTo.Text());
    for (int row = 0; row < ListCC.Count(); ++row) {
        if (!ListCC.Selected(row) || ListCC.Text(row) != recipient) continue;
        ListCC.SetSelected(row, false);
        break;
    }
}

// An empty field is named, and gets the focus.
bool EmailForm::Refused(const std::string& text, const char* message, Control& field) {
    if (!Trim(text).empty()) return false;
    Windows().ShowMessage(message);
    field.SetFocus();
    return true;
}

void EmailForm::ComAdd_Click() {
    if (Refused(TextTo.Text(), "Invalid Email Address for Recipient.", TextTo)) return;
    const std::string address = Trimmed(TextTo.Text());
    if (!AddAddress(p_.book, address)) return;
    TextTo.AddItem(address);
    ListCC.AddItem(address);
    ExchangeAddressBook(p_.files, p_.session.AppPath, p_.book, 0);
}

// A row stands for the address at its place in the book, also where the two have parted.
std::string EmailForm::SelectedCopies() const {
    std::string copies;
    for (int row = 0; row < ListCC.Count(); ++row) {
        const auto place = static_cast<std::size_t>(row);
        if (ListCC.Selected(row) && place < p_.book.size()) copies += p_.book[place].Address + ",";
    }
    return copies;
}

void EmailForm::ComSend_Click() {
    if (sending_ || Refused(Subject.Text(), "Invalid Subject Line.", Subject)) return;
    if (Refused(TextTo.Text(), "Invalid Email Address for Recipient.", TextTo)) return;
    sending_ = true;
    SetEnabled(false);
    FrameProgress.SetVisible(true);
    p_.loop.Yield();
    MailSettings& mail = p_.mail;
    mail.MailTo = Trimmed(TextTo.Text());
    mail.MailSubject = Trimmed(Subject.Text());
    mail.MailBody = Trimmed(Body.Text()) + p_.session.LineBreak + p_.session.LineBreak;
    mail.MailIncludeComments = PrintForm(CheckComments.Value());
    if (AddAddress(p_.book, mail.MailTo)) ExchangeAddressBook(p_.files, p_.session.AppPath, p_.book, 0);
    WriteMailSettings(p_.files, p_.session.AppPath, mail);
    mail.MailCopyList = SelectedCopies();
    SetPointer(Pointer::Wait);
    std::string errorText;  // nobody is told: a failed send closes the dialog like a good one
    p_.sender.SendMail(0, errorText);
    SetPointer(Pointer::Default);
    mail.MailBody = Trimmed(Body.Text());
    cancelled_ = true;
    FrameProgress.SetVisible(false);
    SetEnabled(true);
    sending_ = false;
    Close();
}

void EmailForm::Form_KeyDown(Key key) {
    if (key != Key::Delete) return;
    if (ListCC.ListIndex() >= 0 && ListCC.Count() > 1)
        DeleteAddresses();
    else if (List1.ListIndex() >= 0 && List1.Count() > 1)
        DeleteReports();
}

void EmailForm::FillCopies() {
    ListCC.Clear();
    for (const auto& entry : p_.book) ListCC.AddItem(entry.Address);
}

void EmailForm::DeleteAddresses() {
    AddressBook kept;
    for (std::size_t i = 0; i < p_.book.size(); ++i)
        if (!ListCC.Selected(static_cast<int>(i))) kept.push_back(p_.book[i]);
    if (kept.empty()) {
        Windows().Beep();
    } else {
        p_.book = std::move(kept);
        ExchangeAddressBook(p_.files, p_.session.AppPath, p_.book, 0);
    }
    FillCopies();
}

// The list alone loses the rows: all files that were chosen are sent.
void EmailForm::DeleteReports() {
    std::vector<std::string> kept;
    for (int row = 0; row < List1.Count(); ++row)
        if (!List1.Selected(row)) kept.push_back(List1.Text(row));
    if (kept.empty()) {
        Windows().Beep();
        return;
    }
    List1.Clear();
    for (auto& name : kept) List1.AddItem(std::move(name));
}

}  // namespace qv
