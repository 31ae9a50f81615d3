// The main window: its controls under their names. What they do is connected from outside.
#pragma once

#include <vector>

#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/menu.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "controls/window_system.h"

namespace qv {

// A separator in a menu, behind the entries that stand before it in the class.
struct MenuSeparator {
    explicit MenuSeparator(Menu& menu) { menu.AddSeparator(); }
};

class CheckForm : public Form {
   public:
    explicit CheckForm(WindowSystem& windows);

    std::vector<ToolButton*> ToolButtons();  // all of them, in the order of the tool row

    Menu MenuFile{*this, "MenuFile", "&File"};
    Menu MenuFileNormalMode{MenuFile, "MenuFileNormalMode", "&Internet Mode"};
    Menu MenuFileLocalMode{MenuFile, "MenuFileLocalMode", "&Local Mode"};
    MenuSeparator behindModes{MenuFile};
    Menu MenuFileNew{MenuFile, "MenuFileNew", "&New (Clear Cache)"};
    Menu MenuFileOpenSite{MenuFile, "MenuFileOpenSite", "Check &Web Site"};
    Menu MenuFileOpen{MenuFile, "MenuFileOpen", "Check D&ocument"};
    MenuSeparator behindOpen{MenuFile};
    Menu MenuFileEnterprise{MenuFile, "MenuFileEnterprise", "&Enterprise Check"};
    MenuSeparator behindEnterprise{MenuFile};
    Menu MenuFileSaveList{MenuFile, "MenuFileSaveList", "Save &Document List"};
    Menu MenuFileLoadList{MenuFile, "MenuFileLoadList", "&Load Document List"};
    Menu MenuFileZephonMode{MenuFile, "MenuFileZephonMode", "&Zephon Bookmarks Mode"};
    Menu MenuZephonSave{MenuFile, "MenuZephonSave", "Save Zephon &Bookmarks Changes"};
    MenuSeparator behindZephon{MenuFile};
    Menu MenuFileExit{MenuFile, "MenuFileExit", "E&xit"};

    Menu MenuEdit{*this, "MenuEdit", "&Edit"};
    Menu MenuEditSettings{MenuEdit, "MenuEditSettings", "&Preferences && Settings..."};
    Menu MenuEditCopy{MenuEdit, "MenuEditCopy", "&Copy URL"};
    Menu MenuEditCopyLink{MenuEdit, "MenuEditCopyLink", "Copy &Link"};
    Menu MenuEditPaste{MenuEdit, "MenuEditPaste", "&Paste URL From Browser"};
    Menu MenuEditSelectAll{MenuEdit, "MenuEditSelectAll", "Select &All Links"};
    Menu MenuEditSelectNone{MenuEdit, "MenuEditSelectNone", "Select &None"};
    MenuSeparator behindSelect{MenuEdit};
    Menu MenuEditContain{MenuEdit, "MenuEditContain", "S&elect Links That Contain..."};
    Menu MenuEditDontContain{MenuEdit, "MenuEditDontContain", "Select Links That &Don't Contain..."};
    MenuSeparator behindContain{MenuEdit};
    Menu MenuEditAbove{MenuEdit, "MenuEditAbove", "Toggle Document Selections Abo&ve This Link"};
    Menu MenuEditBelow{MenuEdit, "MenuEditBelow", "Toggle Document Selections &Below This Link"};
    MenuSeparator behindToggle{MenuEdit};
    Menu MenuLinkHide{MenuEdit, "MenuLinkHide", "Show &Questionable Links Only"};
    Menu MenuEditReset{MenuEdit, "MenuEditReset", "&Reset All Status Fields"};

    Menu MenuView{*this, "MenuView", "&Document"};
    Menu MenuViewBrowser{MenuView, "MenuViewBrowser", "Open Document In &Browser"};
    Menu MenuViewEditor{MenuView, "MenuViewEditor", "Open Document In HTML Editor"};
    Menu MenuViewSource{MenuView, "MenuViewSource", "View Document &Source"};
    Menu MenuViewReload{MenuView, "MenuViewReload", "&Re-open Current Document"};
    MenuSeparator behindReload{MenuView};
    Menu MenuViewDelete{MenuView, "MenuViewDelete", "&Remove Selected Document"};
    Menu MenuViewWhois{MenuView, "MenuViewWhois", "Search &Whois For Document Domain"};
    Menu MenuViewSearch{MenuView, "MenuViewSearch", "&Search For Document URL In..."};
    Menu MenuViewAlta{MenuViewSearch, "MenuViewAlta", "&Alta Vista"};
    Menu MenuViewExcite{MenuViewSearch, "MenuViewExcite", "&Excite!"};
    Menu MenuViewInfo{MenuViewSearch, "MenuViewInfo", "&InfoSeek"};

    Menu MenuLink{*this, "MenuLink", "&Link"};
    Menu MenuLinkView{MenuLink, "MenuLinkView", "&View Selected Link"};
    Menu MenuLinkDelete{MenuLink, "MenuLinkDelete", "&Delete Selected Bookmark"};
    Menu MenuLinkRecheck{MenuLink, "MenuLinkRecheck", "&Check This Link"};
    Menu MenuLinkOpen{MenuLink, "MenuLinkOpen", "&Open Link As New Document"};
    MenuSeparator behindLinkOpen{MenuLink};
    Menu MenuLinkBrowser{MenuLink, "MenuLinkBrowser", "Check Link In &Browser"};
    MenuSeparator behindLinkBrowser{MenuLink};
    Menu MenuLinkSearch{MenuLink, "MenuLinkSearch", "&Search For Link Text..."};
    Menu MenuLinkSearch1{MenuLinkSearch, "MenuLinkSearch1", "&Alta Vista"};
    Menu MenuLinkSearch2{MenuLinkSearch, "MenuLinkSearch2", "&Excite!"};
    Menu MenuLinkSearch3{MenuLinkSearch, "MenuLinkSearch3", "&Google"};
    Menu MenuLinkURL{MenuLink, "MenuLinkURL", "Search For &URL..."};
    Menu MenuLinkURL1{MenuLinkURL, "MenuLinkURL1", "&Alta Vista"};
    Menu MenuLinkURL2{MenuLinkURL, "MenuLinkURL2", "&Excite"};
    Menu MenuLinkURL3{MenuLinkURL, "MenuLinkURL3", "&Google"};
    Menu MenuLinkWhois{MenuLink, "MenuLinkWhois", "Search &Whois For Domain Name"};

    Menu MenuReports{*this, "MenuReports", "&Reports"};
    Menu MenuReportsManage{MenuReports, "MenuReportsManage", "&Reports Manager"};
    MenuSeparator behindManage{MenuReports};
    Menu MenuReportsSave{MenuReports, "MenuReportsSave", "&Create Link Check Reports"};
    Menu MenuReportsCopy{MenuReports, "MenuReportsCopy", "Copy Document &Report To Clipboard"};
    Menu MenuReportsLogs{MenuReports, "MenuReportsLogs", "Enterprise Check &Log Manager"};

    Menu MenuSearch{*this, "MenuSearch", "&Search"};
    Menu MenuSearchURL{MenuSearch, "MenuSearchURL", "Find in Link &URLs"};
    Menu MenuSearchText{MenuSearch, "MenuSearchText", "&Find in Link Text"};

    Menu MenuHelp{*this, "MenuHelp", "&Help"};
    Menu MenuHelpLocal{MenuHelp, "MenuHelpLocal", "Help &Contents"};
    Menu MenuHelpTip{MenuHelp, "MenuHelpTip", "&Tip Of The Day"};
    Menu MenuHelpStatus{MenuHelp, "MenuHelpStatus", "HTTP &Status Code Table"};
    Menu MenuHelpEmail{MenuHelp, "MenuHelpEmail", "&Email Configuration Wizard"};
    Menu MenuHelpHome{MenuHelp, "MenuHelpHome", "&Quorvantis Home Page"};
    Menu MenuHelpAbout{MenuHelp, "MenuHelpAbout", "&About"};

    ToolButton ToolInterMode{*this, "ToolInterMode"};
    ToolButton ToolLocalMode{*this, "ToolLocalMode"};
    ToolButton ToolZephonMode{*this, "ToolZephonMode"};
    ToolButton ToolEnter{*this, "ToolEnter"};
    ToolButton ToolOpenDoc{*this, "ToolOpenDoc"};
    ToolButton ToolSave{*this, "ToolSave"};
    ToolButton ToolCopyReports{*this, "ToolCopyReports"};
    ToolButton ToolCopyURL{*this, "ToolCopyURL"};
    ToolButton ToolLinkBrowser{*this, "ToolLinkBrowser"};
    ToolButton ToolLinkCheck{*this, "ToolLinkCheck"};
    ToolButton ToolLinkView{*this, "ToolLinkView"};
    ToolButton ToolLinkQuest{*this, "ToolLinkQuest"};
    ToolButton ToolDocDelete{*this, "ToolDocDelete"};
    ToolButton ToolDocReopen{*this, "ToolDocReopen"};
    ToolButton ToolDocSource{*this, "ToolDocSource"};
    ToolButton ToolDocEditor{*this, "ToolDocEditor"};
    ToolButton ToolDocBrowser{*this, "ToolDocBrowser"};

    Label lblFileName{*this, "lblFileName", "Web Documents:"};
    ListBox txtFileName{*this, "txtFileName", ListBox::SelectionKind::Single};
    Label LabelAddress{*this, "LabelAddress", "&Address:"};
    TextBox TextFileName{*this, "TextFileName"};
    CommandButton Command1{*this, "Command1", "Check &Web Site"};
    CommandButton ComOpen{*this, "ComOpen", "Check &Document"};
    CommandButton ComStart{*this, "ComStart", "Start Link &Check"};
    CommandButton ComStop{*this, "ComStop", "S&top"};
    CommandButton ComSkip{*this, "ComSkip", "S&kip"};
    CommandButton SpinLeft{*this, "SpinLeft", "<"};
    CommandButton SpinRight{*this, "SpinRight", ">"};
    CommandButton ComHide{*this, "ComHide", "S&how Bad Only"};
    CommandButton Command2{*this, "Command2", "E&mail Set-up"};
    Picture Picture2{*this, "Picture2"};  // the indicator: bright green during a retrieval
    Label LabelInd{*this, "LabelInd"};
    ProgressBar ProgressBar1{*this, "ProgressBar1"};
    Picture Picture1{*this, "Picture1"};  // the runner, in the place of the progress bar
    Label LabelStatus{*this, "LabelStatus", "Status"};
    Label LabelText{*this, "LabelText", "Link Text"};
    Label LabelUrl{*this, "LabelUrl", "Link URL"};
    ListBox List1{*this, "List1", ListBox::SelectionKind::Multiple};
    StatusBar StatusBar1{*this, "StatusBar1"};
    Picture FontNamePicture{*this, "FontNamePicture"};  // hidden: rows are measured on it
    Timer Timer1{*this, "Timer1"};                      // the watchdog of an exchange
    Timer Timer2{*this, "Timer2"};                      // repeats the step of a spin button
};

inline constexpr const char* kCaptionCheckDocument = "Check &Document";
inline constexpr const char* kCaptionCancelDocument = "&Cancel Document";
inline constexpr const char* kCaptionCheckSite = "Check &Web Site";
inline constexpr const char* kCaptionShowBadOnly = "S&how Bad Only";

}  // namespace qv
