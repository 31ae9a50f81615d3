// The preferences: the record that every new entry begins as, the helper programs, and the mail's settings.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "controls/window_system.h"
#include "platform/files.h"
#include "platform/programs.h"
#include "session/session.h"
#include "sitedb/preferences.h"
#include "sitedb/record_fields.h"

namespace qv {

class DefaultForm : public Form {
   public:
    struct Parts {
        WindowSystem& windows;
        Files& files;
        const Programs& programs;
        Session& session;
        Settings& settings;
        RunFlags& flags;
        MailSettings& mail;
        Preferences& preferences;
        Form& mainWindow;  // its place is written with the settings
        ListBox& txtFileName;
    };
    explicit DefaultForm(Parts parts);

    TabStrip TabStrip1{*this, "TabStrip1",
                       {"Paths && Preferences", "Default Open Settings", "Default Authorization", "Email && Reports"}};

    Frame Page1{*this, "Frame1", "", nullptr, 1};
    Label Label1{*this, "Label1", "Web Browser:", &Page1};
    TextBox Text1{*this, "Text1", &Page1};
    CommandButton Command6{*this, "Command6", "&Browse", &Page1};
    Label Label3{*this, "Label3", "HTML Editor:", &Page1};
    TextBox Text3{*this, "Text3", &Page1};
    CommandButton ComBrowse{*this, "ComBrowse", "&Browse", &Page1};
    Label Label2{*this, "Label2", "HTML Source Viewer:", &Page1};
    TextBox Text2{*this, "Text2", &Page1};
    CommandButton Command2{*this, "Command2", "&Browse", &Page1};
    CheckBox CheckAuto{*this, "CheckAuto", "Automatically check Links after opening a Web site", &Page1};
    CheckBox CheckIgnoreRemote{*this, "CheckIgnoreRemote", "Ignore Internet URLs when checking Links in Local Mode", &Page1};
    CheckBox Check7{*this, "Check7", "Show Tool Tip Help", &Page1};
    CheckBox CheckRedirect{*this, "CheckRedirect", "Treat persistant 301 and 302 responses as OK", &Page1};

    Frame Page2{*this, "Frame1", "", nullptr, 2};
    Label Label7{*this, "Label7", "Document types to open from this Web Site (separate only with spaces):", &Page2};
    TextBox Text5{*this, "Text5", &Page2};
    Label Label8{*this, "Label8", "Path fragments to ignore when opening this Web Site:", &Page2};
    TextBox Text4{*this, "Text4", &Page2};
    Label Label22{*this, "Label22", "Ignore Documents containing the following Text Strings (up to 10):", &Page2};
    ComboBox ComboTextIgnore{*this, "ComboTextIgnore", &Page2};
    CommandButton Command3{*this, "Command3", "&Add", &Page2};
    CommandButton Command5{*this, "Command5", "De&lete", &Page2};
    CheckBox Check1{*this, "Check1", "Include Images, Sounds, etc.", &Page2};
    CheckBox Check2{*this, "Check2", "Ignore JavaScript Links", &Page2};
    CheckBox Check3{*this, "Check3", "Follow And Check Redirects", &Page2};
    Label Label23{*this, "Label23", "Path fragments to ignore when extracting Document links:", &Page2};
    TextBox Text6{*this, "Text6", &Page2};
    Label Label11{*this, "Label11", "Timeout after", &Page2};
    TextBox Text8{*this, "Text8", &Page2};
    Label Label12{*this, "Label12", "seconds when connecting.", &Page2};
    CommandButton Command1{*this, "Command1", "&Reset All Defaults", &Page2};

    Frame Page3{*this, "Frame1", "", nullptr, 3};
    Label Label9{
        *this, "Label9",
        "The advanced settings on this page control the Authorization strings that Quorvantis sends to a Web server along "
        "with a Document or Link Check request. ",
        &Page3};
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
    Frame Frame6{*this, "Frame6", "FTP Defaults", &Page3};
    CheckBox Check4{*this, "Check4", "Check FTP Protocol Links ", &Frame6};
    Label Label15{*this, "Label15", "User Name:", &Frame6};
    TextBox Text9{*this, "Text9", &Frame6};
    Label Label16{*this, "Label16", "Password:", &Frame6};
    TextBox Text10{*this, "Text10", &Frame6};
    Frame Frame7{*this, "Frame7", "'User Agent' Request Header String (leave blank for no User-Agent)", &Page3};
    TextBox TextUserAgent{*this, "TextUserAgent", &Frame7};
    CommandButton Command7{*this, "Command7", "Default", &Frame7};

    Frame Page4{*this, "Frame1", "", nullptr, 4};
    Label LabelMailServer{*this, "LabelMailServer", "SMTP Mail Server:", &Page4};
    TextBox TextMailServer{*this, "TextMailServer", &Page4};
    Label LabelFromName{*this, "LabelFromName", "From Name:", &Page4};
    TextBox TextFromName{*this, "TextFromName", &Page4};
    Label LabelFromEmail{*this, "LabelFromEmail", "From Address:", &Page4};
    TextBox TextFromEmail{*this, "TextFromEmail", &Page4};
    CheckBox CheckAuth{*this, "CheckAuth", "Authentication Required for sending", &Page4};
    Label LabelAuthName{*this, "LabelAuthName", "User Name:", &Page4};
    TextBox TextAuthName{*this, "TextAuthName", &Page4};
    Label LabelAuthPassword{*this, "LabelAuthPassword", "Password:", &Page4};
    TextBox TextAuthPassword{*this, "TextAuthPassword", &Page4};
    Label Label28{*this, "Label28", "Default Report Folder:", &Page4};
    TextBox TextReportPath{*this, "TextReportPath", &Page4};
    CommandButton Command9{*this, "Command9", "&Browse", &Page4};
    CheckBox Check13{*this, "Check13", "Create A Simple Text Report", &Page4};
    CheckBox Check12{*this, "Check12", "A Comma-Delimited ASCII Report", &Page4};
    CheckBox Check11{*this, "Check11", "An HTML Page Report", &Page4};
    CheckBox CheckWhich{*this, "CheckWhich", "Include Only Questionable Links", &Page4};
    CheckBox Check8{*this, "Check8", "Email Completed Reports", &Page4};
    CheckBox Check9{*this, "Check9", "Copy Me With Emailed Reports", &Page4};

    CommandButton ComOpenNext{*this, "ComOpenNext", "&Okay"};
    CommandButton ComCloseCancel{*this, "ComCloseCancel", "&Cancel"};
    CommandButton ComHelp{*this, "ComHelp", "&Help"};

    std::function<void()> SettingsChanged;  // by Okay, once they are stored

   private:
    void Connect();
    void Form_Load();
    void ShowPage(int tab);
    void ShowPrograms();
    void ShowOpenSettings();
    void ShowAuthorization();
    void ShowMail();
    void ShowReports();
    void SetDefaults();

    // The form into the record. -1 in `refused` when the input is refused.
    void CheckTabOne(Flag& refused);
    void CheckTabTwo(Flag& refused);
    void CheckTabThree(Flag& refused);
    void CheckTabFour(Flag& refused);
    bool Passes(const LogInGroup& group, const char* message);
    bool Refuse(const char* message, Control& field);
    bool StoreMail();

    void ComOpenNext_Click();
    void ComCloseCancel_Click();
    void TakePrograms();
    void Browse(const char* title, TextBox& box, std::string ProgramSettings::*path);
    void BrowseFolder();
    void AddText();
    void DeleteText();

    Parts p_;
    SiteRecord record_;
    int listIndex_ = -1;  // of the documents, when it was opened
};

}  // namespace qv
