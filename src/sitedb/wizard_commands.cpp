// The wizard's buttons.
#include "session/choose_folder.h"
#include "sitedb/wizard_form.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr const char* kFolderFilter = "Folders (*.)|*.";
constexpr const char* kPageFilter = "HTML Files (*.htm;*.html;*.shtml;*.asp)|*.htm;*.html;*.shtml;*.asp";
constexpr int kMostAddresses = 3;

}  // namespace

void WizardForm::ComOpenNext_Click() {
    Flag refused = kClear;
    for (int tab = 1; tab <= 4; ++tab) {
        CheckTab(tab, refused);
        if (refused != 0) return;
    }
    p_.sites.WriteAll(records_);
    const SiteRecord* record = CurrentRecord();
    if (record == nullptr) return;
    p_.session.SiteRecordNumber = static_cast<std::int16_t>(Text1.ItemData(Text1.ListIndex()));
    LastUsedKey() = record->Key();
    p_.loader.LoadSiteRecord(p_.session.SiteRecordNumber, 0);
    opened_ = true;
    Close();
}

void WizardForm::ComApply_Click() {
    const bool pressed = ComApply.HasFocus();
    Flag refused = kClear;
    CheckTab(TabStrip1.Value(), refused);
    if (refused != 0) return;
    p_.sites.WriteAll(records_);
    ComApply.SetEnabled(false);
    if (Text1.Count() > 0) ComEdit.SetEnabled(true);
    if (pressed) ComOpenNext.SetFocus();  // else the next Enter would press the button behind it, which removes the entry
}

void WizardForm::ComEdit_Click() {
    const int number = Text1.ItemData(Text1.ListIndex());
    if (CurrentRecord() == nullptr) return;
    const std::string answer =
        p_.windows.ShowMessage({.text = "Are you sure you want to delete this item? This action cannot be undone.",
                                .buttons = {"Yes", "No"},
                                .defaultButton = "Yes",
                                .question = true});
    if (answer != "Yes") return;
    records_.erase(records_.begin() + number - 1);
    p_.sites.WriteAll(records_);
    p_.sites.DropEnterpriseList();
    FillList();
    if (Text1.Count() > 0) {
        Text1.SetListIndex(0);
    } else {
        ComEdit.SetEnabled(false);
        p_.flags.IgnoreControlEvents = kSet;
        Text1.SetText("");
        Text2.SetText("");
        Text3.SetText("");
        p_.flags.IgnoreControlEvents = kClear;
    }
    ComApply.SetEnabled(false);
}

// Left otherwise than by Open: cancelled.
void WizardForm::Form_Unload() {
    if (opened_) return;
    p_.session.WizardCancelled = kSet;
    if (p_.session.WizardFromList != 0) p_.txtFileName.SetListIndex(p_.session.WizardListIndex);
}

void WizardForm::ComBrowse_Click() {
    if (!IsLocalDocument()) {
        const auto folder = ChooseFolder(p_.windows, p_.files, "Locate Web Site/Document Folder...", kFolderFilter, Text3.Text());
        if (folder) Text3.SetText(*folder);
        return;
    }
    const std::string& path = Text1.Text();
    const auto file = p_.windows.ShowFileDialog(
        {.title = "Locate Document...", .filter = kPageFilter, .name = "*.htm", .folder = path.substr(0, path.rfind('\\') + 1)});
    if (file) Text1.SetText(*file);
}

void WizardForm::Command9_Click() {
    const auto folder = ChooseFolder(p_.windows, p_.files, "Locate Folder for Reports...", kFolderFilter, TextReportPath.Text());
    if (folder) TextReportPath.SetText(*folder);
}

void WizardForm::AddText() {
    if (!AddItemOfText(ComboTextIgnore, static_cast<int>(kIgnoreTextSlots)))
        p_.windows.ShowMessage("Only 10 text strings are allowed per Web Site. Delete an existing string to add another.");
    FieldChanged();
    ComboTextIgnore.SetFocus();
}

void WizardForm::DeleteText() {
    if (RemoveItemOfText(ComboTextIgnore))
        FieldChanged();
    else
        p_.windows.Beep();
    ComboTextIgnore.SetFocus();
}

void WizardForm::AddAddress() {
    const std::string address(Trim(Combo1.Text()));
    if (!Contains(address, "@") || !Contains(address, ".")) {
        p_.windows.ShowMessage("Invalid email address.");
    } else if (Combo1.Count() >= kMostAddresses) {
        p_.windows.ShowMessage("You can only add 3 email addresses here.");
    } else {
        Combo1.AddItem(address);
        FieldChanged();
    }
}

void WizardForm::DeleteAddress() {
    if (Combo1.Count() == 0) {
        p_.windows.ShowMessage("No addresses have been added yet.");
    } else if (Combo1.ListIndex() < 0) {
        p_.windows.ShowMessage("Please select an email address to Delete.");
    } else {
        Combo1.RemoveItem(Combo1.ListIndex());
        Combo1.SetText("");
        FieldChanged();
    }
}

void WizardForm::Check8_Click() {
    if (p_.flags.IgnoreControlEvents == 0) FollowCheck8();
}

void WizardForm::FollowCheck8() {
    if (Check8.Checked() && (Trim(p_.mail.MailServer).empty() || Trim(p_.mail.MailFromAddress).empty())) {
        p_.windows.ShowMessage(
            "Before you select this option, you must enter your Email information in Quorvantis Preferences and Settings (Under "
            "the 'Edit' Menu).");
        Check8.SetValue(0);
    }
    ShowMailControls();
}

}  // namespace qv
