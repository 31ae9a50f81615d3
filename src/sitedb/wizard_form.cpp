#include "sitedb/wizard_form.h"

#include "text/basic_text.h"

namespace qv {
namespace {

struct Guise {
    const char* caption;
    const char* tab;
    const char* prompt;      // Label4
    const char* file;        // Label5; null: there is no file field
    const char* folder;      // Label6
    const char* fileNeed;    // Label20
    const char* folderNeed;  // Label21
};

constexpr Guise kLocalSite = {
    "Local Web Site Database",
    "Web Site URL",
    "Enter the URL (Address) that will be used to access your site on the Web. Include ONLY the Web site path (ie. "
    "http://www.example.com/mysite/):",
    "Enter the file name of your Web site's home or main page (ie. index.htm):",
    "Enter the local folder where your Web site is saved (ie. c:\\mywebsite):",
    "Required:",
    "Required:"};
constexpr Guise kLocalDocument = {"Local Document Database",
                                  "Document URL",
                                  "Enter the path and file name under which your document is saved on your hard drive:",
                                  nullptr,
                                  "Enter the Document's Web URL path (ie. http://www.example.com/mysite/):",
                                  "",
                                  "Optional:"};
constexpr Guise kInternetSite = {
    "Internet Web Site Database",
    "WebSite URL",
    "Enter the URL (Address) used to access your site on the Web. Include ONLY the path portion of the URL (ie. "
    "http://www.example.com/mysite/):",
    "Enter the file name of your Web site's home or main page (ie. index.htm):",
    "Enter the local folder where your Web site is saved (ie. c:\\mywebsite)::",
    "Optional:",
    "Optional:"};
constexpr Guise kInternetDocument = {
    "Internet Document Database",
    "Document URL",
    "Enter the URL (Address) used to access the document on the Web (ie. http://www.example.com/mysite/page.htm):",
    nullptr,
    "Enter the local folder where your Document is saved (ie. c:\\mywebsite):",
    "",
    "Optional:"};

}  // namespace

WizardForm::WizardForm(Parts parts) : Form(parts.windows, "WizardForm", ""), p_(parts) {
    SetSize(640, 540);
    for (TextBox* secret : {&TextPassword, &Text10, &TextProxyPassword}) secret->SetMasked(true);
    ComApply.SetEnabled(false);
    ComEdit.SetEnabled(false);
    SetDefaultButton(&ComOpenNext);
    SetCancelButton(&ComCloseCancel);
    Connect();
    ConnectFields();
    ConnectBoxes();
}

void WizardForm::Connect() {
    Load = [this] { Form_Load(); };
    Activate = [this] {
        Activate = nullptr;
        Text1.SetFocus();
    };
    Unload = [this](bool&) { Form_Unload(); };
    TabStrip1.BeforeClick = [this](bool& refused) { BeforeTab(refused); };
    TabStrip1.Click = [this] { ShowPage(TabStrip1.Value()); };
    Text1.Click = [this] { Text1_Click(); };
    Text1.Change = [this] { Text1_Change(); };
    ComOpenNext.Click = [this] { ComOpenNext_Click(); };
    ComApply.Click = [this] { ComApply_Click(); };
    ComEdit.Click = [this] { ComEdit_Click(); };
    ComCloseCancel.Click = [this] { Close(); };
    ComBrowse.Click = [this] { ComBrowse_Click(); };
    Command1.Click = [this] { Text7.SetText(BetweenBlanks(p_.preferences.Record().Text(field::IgnoreLinkPaths))); };
    Command3.Click = [this] { Text5.SetText(kDefaultDocumentTypes); };
    Command4.Click = [this] { Text4.SetText(BetweenBlanks(p_.preferences.Record().Text(field::IgnoreOpenPaths))); };
    Command7.Click = [this] { TextUserAgent.SetText(""); };
    Command9.Click = [this] { Command9_Click(); };
    Command2.Click = [this] { AddText(); };
    Command5.Click = [this] { DeleteText(); };
    Command6.Click = [this] { AddAddress(); };
    Command8.Click = [this] { DeleteAddress(); };
}

// Every entry field enables Apply.
void WizardForm::ConnectFields() {
    for (TextBox* box : {&Text2, &Text3, &Text5, &Text4, &Text7, &Text8, &Text9, &Text10, &Text6, &TextUserName, &TextPassword,
                         &TextServer, &TextPort, &TextProxyUserName, &TextProxyPassword, &TextUserAgent, &TextReportPath})
        box->Change = [this] { FieldChanged(); };
    for (CheckBox* box : {&Check1, &Check2, &Check3, &Check13, &Check12, &Check11, &CheckWhich, &Check9})
        box->Click = [this] { FieldChanged(); };
    for (OptionButton* option : {&Option1, &Option2, &Option3}) option->Click = [this] { FieldChanged(); };
    ComboTextIgnore.Change = [this] { FieldChanged(); };
    Combo1.Change = [this] { FieldChanged(); };
}

// The boxes that other fields follow. While an entry is being shown they stay quiet.
void WizardForm::ConnectBoxes() {
    const auto connect = [this](CheckBox& box, TextBox& first, void (WizardForm::*show)(bool)) {
        box.Click = [this, &box, &first, show] {
            if (p_.flags.IgnoreControlEvents != 0) return;
            (this->*show)(box.Checked());
            if (TabStrip1.Value() == 3) first.SetFocus();
            FieldChanged();
        };
    };
    connect(Check4, Text9, &WizardForm::ShowFtp);
    connect(Check5, TextUserName, &WizardForm::ShowHttp);
    connect(Check6, TextServer, &WizardForm::ShowProxy);
    connect(Check7, TextProxyUserName, &WizardForm::ShowProxyAuthentication);
    Check10.Click = [this] {
        ShowReportFrames();
        FieldChanged();
    };
    Check8.Click = [this] {
        Check8_Click();
        FieldChanged();
    };
}

void WizardForm::FieldChanged() {
    if (p_.flags.IgnoreControlEvents == 0) ComApply.SetEnabled(true);
}

void WizardForm::Text1_Change() {
    if (p_.flags.IgnoreControlEvents != 0) return;
    if (ComEdit.Enabled()) {
        ComEdit.SetEnabled(false);
        Text2.SetText("");
        Text3.SetText("");
    }
    ComApply.SetEnabled(true);
    ComApply.SetCaption("&Add");
}

void WizardForm::Form_Load() {
    Centre();
    ShowPage(1);
    records_ = p_.sites.ReadAll();
    SetGuise();
    FillList();
    TakeFirstEntry();
    if (Text1.ListIndex() >= 0) ComEdit.SetEnabled(true);
    ShowReportFrames();
    if (Text1.ListIndex() < 0) {
        ShowFtp(false);
        ShowHttp(false);
        ShowProxy(false);
        ShowMailControls();
    }
}

void WizardForm::SetGuise() {
    const Guise& guise = IsLocal() ? (IsSite() ? kLocalSite : kLocalDocument) : (IsSite() ? kInternetSite : kInternetDocument);
    SetCaption(guise.caption);
    TabStrip1.SetTab(1, guise.tab);
    ImageLocal.SetVisible(IsLocal());
    ImageInternet.SetVisible(!IsLocal());
    Label4.SetCaption(guise.prompt);
    Label5.SetCaption(guise.file != nullptr ? guise.file : "");
    Label20.SetCaption(guise.fileNeed);
    Label6.SetCaption(guise.folder);
    Label21.SetCaption(guise.folderNeed);
    for (Control* control : std::initializer_list<Control*>{&Label5, &Label20, &Text2})
        control->SetVisible(guise.file != nullptr);
    Text2.SetEnabled(guise.file != nullptr);
    for (OptionButton* option : {&Option1, &Option2, &Option3}) option->SetVisible(IsLocal() && IsSite());
    for (Control* control : std::initializer_list<Control*>{&Frame9, &Text5, &Text4, &ComboTextIgnore, &Label7, &Label8, &Label22,
                                                            &Command2, &Command3, &Command4, &Command5})
        control->SetEnabled(IsSite());
}

void WizardForm::FillList() {
    p_.flags.IgnoreControlEvents = kSet;
    Text1.Clear();
    for (std::size_t i = 0; i < records_.size(); ++i)
        if (records_[i].IsOfKind(p_.settings.ProgramMode, p_.settings.EntryIsSite))
            Text1.AddItem(records_[i].Key(), static_cast<std::int32_t>(i) + 1);
    p_.flags.IgnoreControlEvents = kClear;
}

std::string& WizardForm::LastUsedKey() {
    Settings& s = p_.settings;
    if (IsLocal()) return IsSite() ? s.LastLocalSite : s.LastLocalDocument;
    return IsSite() ? s.LastInternetSite : s.LastInternetDocument;
}

void WizardForm::TakeFirstEntry() {
    if (p_.session.WizardFromList != 0) {
        const std::string& address = p_.TextFileName.Text();
        const bool localPath = address.substr(0, 1) == "\\" || address.substr(0, 1) == "/" ||
                               (address.size() > 2 && address.compare(1, 2, ":\\") == 0);
        if (IsLocalDocument() && !localPath)
            Text3.SetText(address);
        else
            Text1.SetText(address);
        return;
    }
    const int found = SiteDatabase::Find(records_, p_.settings.ProgramMode, p_.settings.EntryIsSite, LastUsedKey());
    for (int item = 0; found > 0 && item < Text1.Count(); ++item)
        if (Text1.ItemData(item) == found) Text1.SetListIndex(item);
}

void WizardForm::ShowPage(int tab) {
    TabStrip1.SetValue(tab);
    int number = 1;
    for (Frame* page : {&Page1, &Page2, &Page3, &Page4}) page->SetVisible(number++ == tab);
    if (tab == 1) Text1.SetFocus();
    if (tab == 2) Text5.SetFocus();
    if (tab == 3) Check4.SetFocus();
}

void WizardForm::BeforeTab(bool& refused) {
    Flag flag = kClear;
    CheckTab(TabStrip1.Value(), flag);
    refused = flag != 0;
}

}  // namespace qv
