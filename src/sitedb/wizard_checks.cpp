// The wizard's half that checks what was entered and stores it in the record.
#include <algorithm>
#include <array>

#include "platform/files.h"
#include "sitedb/record_fields.h"
#include "sitedb/wizard_form.h"
#include "text/basic_text.h"

namespace qv {
namespace {

std::string Trimmed(const std::string& text) { return std::string(Trim(text)); }

bool NamesDocument(const std::string& address) {
    static constexpr std::array<std::string_view, 9> kEndings = {".htm", "html", ".asp", "aspx", ".php",
                                                                 ".cfm", "cfml", ".adp", ".nsf"};
    const std::string end = Lower(Trim(address.size() > 4 ? address.substr(address.size() - 4) : address));
    return std::find(kEndings.begin(), kEndings.end(), end) != kEndings.end();
}

bool IsHttp(const std::string& address) { return StartsWithLower(address, "http://"); }

}  // namespace

std::string StoredFolder(std::string folder) {
    if (Trim(folder).empty()) return folder;
    folder = PathText(folder);
    while (EndsWith(folder, "\\\\")) folder.pop_back();
    return EndsWith(folder, "\\") ? folder : folder + "\\";
}

void GetFileName(const std::string& url, std::string& path, std::string& file) {
    std::size_t third = std::string::npos;
    int slashes = 0;
    for (std::size_t i = 0; i < url.size() && slashes < 3; ++i)
        if (url[i] == '/' && ++slashes == 3) third = i;
    file.clear();
    path = url;
    if (slashes == 2) path += "/";
    if (third == std::string::npos || third + 1 == url.size()) return;
    const auto last = url.rfind('/');
    path = url.substr(0, last + 1);
    file = url.substr(last + 1);
}

SiteRecord* WizardForm::CurrentRecord() {
    const std::int32_t number = Text1.ItemData(Text1.ListIndex());
    if (number < 1 || number > static_cast<std::int32_t>(records_.size())) return nullptr;
    return &records_[static_cast<std::size_t>(number) - 1];
}

bool WizardForm::Refuse(const std::string& message, Control& field) {
    p_.windows.ShowMessage(message);
    field.SetFocus();
    return false;
}

void WizardForm::SetQuietly(TextBox& box, const std::string& text) {
    p_.flags.IgnoreControlEvents = kSet;
    box.SetText(text);
    p_.flags.IgnoreControlEvents = kClear;
}

void WizardForm::SetTextQuietly(const std::string& text) {
    if (Text1.Text() == text) return;
    p_.flags.IgnoreControlEvents = kSet;
    Text1.SetText(text);
    p_.flags.IgnoreControlEvents = kClear;
}

void WizardForm::MakeCurrentQuietly(int record) {
    p_.flags.IgnoreControlEvents = kSet;
    for (int item = 0; item < Text1.Count(); ++item)
        if (Text1.ItemData(item) == record) Text1.SetListIndex(item);
    p_.flags.IgnoreControlEvents = kClear;
}

void WizardForm::CheckTab(int tab, Flag& refused) {
    if (tab == 1) CheckTabOne(refused);
    if (tab == 2) CheckTabTwo(refused);
    if (tab == 3) CheckTabThree(refused);
    if (tab == 4) CheckTabFour(refused);
}

void WizardForm::CheckTabOne(Flag& refused) {
    SetTextQuietly(Trimmed(Text1.Text()));
    SetQuietly(Text2, Trimmed(Text2.Text()));
    SetQuietly(Text3, Trimmed(Text3.Text()));
    if (!CheckAddresses() || !CheckFile()) {
        refused = kSet;
        return;
    }
    StoreEntry();
}

bool WizardForm::CheckNoDocumentName(const std::string& address, Control& field) {
    if (!NamesDocument(address)) return true;
    return Refuse("Please include only the Web site path in the URL: " + address + ". Remove the document name.", field);
}

bool WizardForm::CheckAddresses() {
    const std::string address = Text1.Text();
    if (IsLocalDocument()) {
        if (address.empty() || !p_.files.FileExists(address)) return Refuse("Not a valid file name: " + address, Text1);
    } else if (!IsHttp(address)) {
        return Refuse("Not a valid Web URL: " + address, Text1);
    }
    if (IsSite() && !CheckNoDocumentName(address, Text1)) return false;
    if (IsSite() && IsLocal()) {
        if (Text2.Text().empty()) return Refuse("Please enter a file name.", Text2);
        if (Text3.Text().empty()) return Refuse("Please enter a path to your Web site or document folder.", Text3);
    }
    if (Text3.Text().empty()) return true;
    if (!IsLocalDocument()) {
        SetQuietly(Text3, StoredFolder(Text3.Text()));
        return true;
    }
    const std::string web = Text3.Text();
    if (!CheckNoDocumentName(web, Text3)) return false;
    if (web != "/" && !IsHttp(web)) return Refuse("Not a valid Web URL: " + web, Text3);
    if (!EndsWith(web, "/")) SetQuietly(Text3, web + "/");
    return true;
}

// Splits a document's address or path, and looks for the file where one is told.
bool WizardForm::CheckFile() {
    if (!IsSite()) {
        std::string path = PathText(Text1.Text());
        std::string file;
        if (IsLocal()) {
            file = path.substr(path.rfind('\\') + 1);
            path.resize(path.size() - file.size());
        } else {
            GetFileName(Text1.Text(), path, file);
        }
        SetTextQuietly(path);
        SetQuietly(Text2, file);
    }
    const bool asked = IsLocal() || !Text3.Text().empty();
    const std::string file = (IsLocalDocument() ? Text1.Text() : Text3.Text()) + Text2.Text();
    if (!asked || p_.files.FileExists(file) || (Text2.Text().empty() && p_.files.FolderExists(file))) return true;
    if (!IsSite() || !IsLocal()) SetTextQuietly(Text1.Text() + Text2.Text());
    return Refuse("File not found: " + file, IsLocalDocument() ? static_cast<Control&>(Text1) : Text3);
}

void WizardForm::StoreEntry() {
    std::string url = IsLocalDocument() ? Text3.Text() : Text1.Text();
    if (IsLocalDocument() || IsSite()) url += EndsWith(url, "/") ? "" : "/";
    const std::string folder = Trimmed(IsLocalDocument() ? Text1.Text() : Text3.Text());
    SiteRecord entry;
    const auto store = [&](SiteRecord& record) {
        record.SetText(field::SiteUrl, url);
        record.SetText(field::SiteFileName, Text2.Text());
        record.SetText(field::SiteFolder, folder);
        record.SetNumber(field::EntryMode, p_.settings.ProgramMode);
        record.SetNumber(field::EntryIsSite, FlagOf(IsSite()));
        if (IsLocal())
            record.SetNumber(field::SiteOpenMode, static_cast<std::int16_t>(Option2.Value() ? 1 : Option3.Value() ? 2 : 0));
    };
    store(entry);
    int number = SiteDatabase::Find(records_, p_.settings.ProgramMode, p_.settings.EntryIsSite, entry.Key());
    const bool isNew = number == 0;
    if (isNew) {
        records_.push_back(p_.preferences.Record());
        number = static_cast<int>(records_.size());
    }
    store(records_[static_cast<std::size_t>(number) - 1]);
    if (isNew) {
        Text1.AddItem(entry.Key(), number);
        MakeCurrentQuietly(number);
        Text1_Click();
        ComApply.SetEnabled(false);
    } else {
        MakeCurrentQuietly(number);
        // An entry that was typed while no entry was on the form keeps its settings: the fields hold none to store.
        if (!shown_) Text1_Click();
    }
    ComApply.SetCaption("Apply Changes");
    p_.sites.WriteAll(records_);
}

void WizardForm::CheckTabTwo(Flag&) {
    SiteRecord* record = CurrentRecord();
    if (Text1.Count() == 0 || record == nullptr) return;
    record->SetNumber(field::IncludeImages, FlagOf(Check1.Checked()));
    record->SetNumber(field::IgnoreJavaScript, FlagOf(Check2.Checked()));
    record->SetNumber(field::FollowRedirects, FlagOf(Check3.Checked()));
    const auto storeList = [&](TextBox& box, TextField f) {
        record->SetText(f, BetweenBlanks(box.Text()));
        SetQuietly(box, BetweenBlanks(record->Text(f)));
    };
    storeList(Text5, field::DocumentTypes);
    storeList(Text4, field::IgnoreOpenPaths);
    storeList(Text7, field::IgnoreLinkPaths);
    StoreIgnoreTexts(ComboTextIgnore, *record);
    record->SetNumber(field::HttpTimeout, TimeoutOf(Text8.Text()));
    SetQuietly(Text8, std::to_string(record->Number(field::HttpTimeout)));
}

// One group of the authorization page: what is missing is named, and gets the focus.
bool WizardForm::Passes(const LogInGroup& group, const char* message) {
    Control* missing = StoreLogIn(group, *CurrentRecord());
    return missing == nullptr || Refuse(message, *missing);
}

void WizardForm::CheckTabThree(Flag& refused) {
    SiteRecord* record = CurrentRecord();
    if (Text1.Count() == 0 || record == nullptr) return;
    const bool passed =
        Passes({Check6, field::UseProxy, TextServer, field::ProxyServerName, TextPort, field::ProxyPortText, true},
               "Proxy Server Name and Port Number are required.") &&
        Passes({Check5, field::UseHttpAuthentication, TextUserName, field::HttpUserName, TextPassword, field::HttpPassword},
               "Valid HTTP Authenticated User Name and Password are required.") &&
        Passes({Check7, field::UseProxyAuthentication, TextProxyUserName, field::ProxyUserName, TextProxyPassword,
                field::ProxyPassword},
               "Valid Proxy Authenticated User Name and Password are required.") &&
        Passes({Check4, field::CheckFtpLinks, Text9, field::FtpUserName, Text10, field::FtpPassword},
               "Valid FTP User Name and Password are required.");
    if (!passed) {
        refused = kSet;
        return;
    }
    if (Check4.Checked()) {
        record->SetNumber(field::FtpTimeout, TimeoutOf(Text6.Text()));
        SetQuietly(Text6, std::to_string(record->Number(field::FtpTimeout)));
    }
    record->SetText(field::UserAgent, Trim(TextUserAgent.Text()));
}

void WizardForm::CheckTabFour(Flag&) {
    SiteRecord* record = CurrentRecord();
    if (Text1.Count() == 0 || record == nullptr) return;
    const std::initializer_list<std::pair<NumberField, CheckBox*>> flags = {
        {field::AutoReportsAfterCheck, &Check10}, {field::MakeTextReport, &Check13},      {field::MakeAsciiReport, &Check12},
        {field::MakeHtmlReport, &Check11},        {field::QuestionableOnly, &CheckWhich}, {field::EmailReports, &Check8},
        {field::CopyMeOnReports, &Check9}};
    for (const auto& [flag, box] : flags) record->SetNumber(flag, FlagOf(box->Checked()));
    int item = 0;
    for (const TextField& address : field::ReportAddresses) record->SetText(address, Combo1.ItemText(item++));
    record->SetText(field::ReportFolder, PathText(TextReportPath.Text()));
}

}  // namespace qv
