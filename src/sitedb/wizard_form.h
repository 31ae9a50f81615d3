// The editor of the site database, and the door through which a site or a document is opened. One form in four guises, one for
// each kind of entry.
#pragma once

#include <string>
#include <vector>

#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "controls/window_system.h"
#include "platform/files.h"
#include "session/session.h"
#include "sitedb/load_site_record.h"
#include "sitedb/preferences.h"
#include "sitedb/record_fields.h"
#include "sitedb/site_database.h"

namespace qv {

class WizardForm : public Form {
   public:
    struct Parts {
        WindowSystem& windows;
        Files& files;
        Session& session;
        Settings& settings;
        RunFlags& flags;
        const MailSettings& mail;
        const Preferences& preferences;
        SiteDatabase& sites;
        SiteRecordLoader& loader;
        TextBox& TextFileName;  // of the main window
        ListBox& txtFileName;
    };
    explicit WizardForm(Parts parts);

    TabStrip TabStrip1{*this, "TabStrip1", {"URL && Path", "Open Settings", "Authorization", "Reports"}};

    Frame Page1{*this, "Frame1", "", nullptr, 1};
    Picture ImageLocal{*this, "ImageLocal", &Page1};
    Picture ImageInternet{*this, "ImageInternet", &Page1};
    Label Label4{*this, "Label4", "", &Page1};
    Label Label19{*this, "Label19", "Required:", &Page1};
    ComboBox Text1{*this, "Text1", &Page1};
    Label Label5{*this, "Label5", "", &Page1};
    Label Label20{*this, "Label20", "", &Page1};
    TextBox Text2{*this, "Text2", &Page1};
    Label Label6{*this, "Label6", "", &Page1};
    Label Label21{*this, "Label21", "", &Page1};
    TextBox Text3{*this, "Text3", &Page1};
    CommandButton ComBrowse{*this, "ComBrowse", "&Browse", &Page1};
    OptionButton Option1{*this, "Option1", "Open Linked Documents Only", &Page1};
    OptionButton Option2{*this, "Option2", "Open All Documents In This Folder", &Page1};
    OptionButton Option3{*this, "Option3", "Open All Documents In This Folder And Its Sub-Folders", &Page1};

    Frame Page2{*this, "Frame1", "", nullptr, 2};
    Frame Frame9{*this, "Frame9", "Site Open Settings", &Page2};
    Label Label7{*this, "Label7", "Document types to open with this Web Site (separate only with spaces):", &Frame9};
    TextBox Text5{*this, "Text5", &Frame9};
    CommandButton Command3{*this, "Command3", "&Defaults", &Frame9};
    Label Label8{*this, "Label8", "Path fragments to ignore when opening this Web Site:", &Frame9};
    TextBox Text4{*this, "Text4", &Frame9};
    CommandButton Command4{*this, "Command4", "&Defaults", &Frame9};
    Label Label22{*this, "Label22", "Ignore Documents containing the following Text Strings (up to 10):", &Frame9};
    ComboBox ComboTextIgnore{*this, "ComboTextIgnore", &Frame9};
    CommandButton Command2{*this, "Command2", "&Add", &Frame9};
    CommandButton Command5{*this, "Command5", "De&lete", &Frame9};
    CheckBox Check1{*this, "Check1", "Include Images, Sounds, etc.", &Page2};
    CheckBox Check2{*this, "Check2", "Ignore JavaScript Links", &Page2};
    CheckBox Check3{*this, "Check3", "Follow And Check Redirects", &Page2};
    Label Label23{*this, "Label23", "Path fragments to ignore when extracting Document links:", &Page2};
    TextBox Text7{*this, "Text7", &Page2};
    CommandButton Command1{*this, "Command1", "&Defaults", &Page2};
    Label Label11{*this, "Label11", "Timeout after", &Page2};
    TextBox Text8{*this, "Text8", &Page2};
    Label Label12{*this, "Label12", "seconds when connecting.", &Page2};

    Frame Page3{*this, "Frame1", "", nullptr, 3};
    Label Label9{
        *this, "Label9",
        "The advanced settings on this page control the Authorization strings that Quorvantis sends to a Web server along "
        "with a Document or Link Check request. ",
        &Page3};
    Frame Frame6{*this, "Frame6", "FTP Defaults", &Page3};
    CheckBox Check4{*this, "Check4", "Check FTP Protocol Links ", &Frame6};
    Label Label15{*this, "Label15", "User Name:", &Frame6};
    TextBox Text9{*this, "Text9", &Frame6};
    Label Label16{*this, "Label16", "Password:", &Frame6};
    TextBox Text10{*this, "Text10", &Frame6};
    Label Label10{*this, "Label10", "FTP Timeout:", &Frame6};
    TextBox Text6{*this, "Text6", &Frame6};
    Frame Frame4{*this, "Frame4", "HTTP Defaults", &Page3};
    CheckBox Check5{*this, "Check5", "Use HTTP Authentication", &Frame4};
    Label Label13{*this, "Label13", "User Name:", &Frame4};
    TextBox TextUserName{*this, "TextUserName", &Frame4};
    Label Label14{*this, "Label14", "Password:", &Frame4};
    TextBox TextPassword{*this, "TextPassword", &Frame4};
    Frame Frame5{*this, "Frame5", "Proxy Settings", &Page3};
    CheckBox Check6{*this, "Check6", "Use Proxy Server", &Frame5};
    Label Label17{*this, "Label17", "Server:", &Frame5};
    TextBox TextServer{*this, "TextServer", &Frame5};
    Label Label18{*this, "Label18", "Port:", &Frame5};
    TextBox TextPort{*this, "TextPort", &Frame5};
    CheckBox Check7{*this, "Check7", "Use Proxy Authentication", &Frame5};
    Label Label24{*this, "Label24", "User Name:", &Frame5};
    TextBox TextProxyUserName{*this, "TextProxyUserName", &Frame5};
    Label Label26{*this, "Label26", "Password:", &Frame5};
    TextBox TextProxyPassword{*this, "TextProxyPassword", &Frame5};
    Frame Frame7{*this, "Frame7", "'User Agent' Request Header String (leave blank for no User-Agent)", &Page3};
    TextBox TextUserAgent{*this, "TextUserAgent", &Frame7};
    CommandButton Command7{*this, "Command7", "Default", &Frame7};

    Frame Page4{*this, "Frame1", "", nullptr, 4};
    CheckBox Check10{*this, "Check10", "Automatically create a Report for this URL when Link Checking is Complete.", &Page4};
    Frame Frame8{*this, "Frame8", "After Checking Links, Create: ", &Page4};
    CheckBox Check13{*this, "Check13", "A Simple Text Report, Formatted for Printing", &Frame8};
    CheckBox Check12{*this, "Check12", "A Comma-Delimited ASCII Report for Database Importing", &Frame8};
    CheckBox Check11{*this, "Check11", "An HTML Page Report for Displaying in a Browser", &Frame8};
    Frame Frame3{*this, "Frame3", "Report Settings:", &Page4};
    Label Label28{*this, "Label28", "Default Report Folder:", &Frame3};
    TextBox TextReportPath{*this, "TextReportPath", &Frame3};
    CommandButton Command9{*this, "Command9", "&Browse", &Frame3};
    CheckBox CheckWhich{*this, "CheckWhich", "Include Only Questionable Links in Reports", &Frame3};
    CheckBox Check8{*this, "Check8", "Email Completed Reports as Attachments", &Frame3};
    Label Label27{*this, "Label27", "Email to:", &Frame3};
    ComboBox Combo1{*this, "Combo1", &Frame3};
    CommandButton Command6{*this, "Command6", "&Add Address", &Frame3};
    CommandButton Command8{*this, "Command8", "&Delete", &Frame3};
    CheckBox Check9{*this, "Check9", "Copy Me With Emailed Reports", &Frame3};

    CommandButton ComOpenNext{*this, "ComOpenNext", "&Open"};
    CommandButton ComApply{*this, "ComApply", "&Apply Changes"};
    CommandButton ComEdit{*this, "ComEdit", "&Remove"};
    CommandButton ComCloseCancel{*this, "ComCloseCancel", "&Close"};
    CommandButton ComHelp{*this, "ComHelp", "&Help"};

   private:
    bool IsLocal() const { return p_.settings.ProgramMode == kLocalMode; }
    bool IsSite() const { return p_.settings.EntryIsSite != 0; }
    bool IsLocalDocument() const { return IsLocal() && !IsSite(); }

    // wizard_form.cpp: the form itself
    void Connect();
    void ConnectFields();
    void ConnectBoxes();
    void Form_Load();
    void SetGuise();
    void FillList();
    void TakeFirstEntry();
    std::string& LastUsedKey();
    void ShowPage(int tab);
    void BeforeTab(bool& refused);
    void FieldChanged();
    void Text1_Change();

    // wizard_show.cpp: a record on the form
    void Text1_Click();
    void ShowOpenSettings(SiteRecord& record);
    void ShowAuthorization(const SiteRecord& record);
    void ShowReports(SiteRecord& record);
    void ShowFtp(bool on);
    void ShowHttp(bool on);
    void ShowProxy(bool on);
    void ShowProxyAuthentication(bool on);
    void ShowReportFrames();
    void ShowMailControls();

    // wizard_checks.cpp: the form into the record. -1 in `refused` when the input is refused.
    void CheckTabOne(Flag& refused);
    void CheckTabTwo(Flag& refused);
    void CheckTabThree(Flag& refused);
    void CheckTabFour(Flag& refused);
    void CheckTab(int tab, Flag& refused);
    bool CheckAddresses();
    bool CheckNoDocumentName(const std::string& address, Control& field);
    bool CheckFile();
    void StoreEntry();
    bool Refuse(const std::string& message, Control& field);
    void SetQuietly(TextBox& box, const std::string& text);
    void SetTextQuietly(const std::string& text);
    void MakeCurrentQuietly(int record);
    SiteRecord* CurrentRecord();
    bool Passes(const LogInGroup& group, const char* message);

    // wizard_commands.cpp: the buttons
    void ComOpenNext_Click();
    void ComApply_Click();
    void ComEdit_Click();
    void Form_Unload();
    void ComBrowse_Click();
    void Command9_Click();
    void AddText();
    void DeleteText();
    void AddAddress();
    void DeleteAddress();
    void Check8_Click();
    void FollowCheck8();  // the address controls are there while reports are mailed, which needs the mail settings

    Parts p_;
    std::vector<SiteRecord> records_;  // the working array; record n is element n - 1
    bool opened_ = false;              // left by Open
    bool shown_ = false;               // the fields are those of an entry
};

// Splits an address into its path, up to and including its last "/", and the file behind that. A bare host gets a "/".
void GetFileName(const std::string& url, std::string& path, std::string& file);

// A typed folder as it is stored: with backslashes, and with one of them at its end unless it is blank.
std::string StoredFolder(std::string folder);

}  // namespace qv
