#include "mainwindow/window_rules.h"

#include <array>
#include <string_view>
#include <utility>

#include "extract/url_text.h"
#include "text/basic_text.h"

namespace qv {
namespace {

void EnableAll(std::initializer_list<Control*> controls, bool enabled) {
    for (Control* control : controls) control->SetEnabled(enabled);
}

}  // namespace

void ShowAllLinks(CheckForm& window, RunFlags& flags) {
    flags.HideGoodLinks = kClear;
    window.ComHide.SetCaption(kCaptionShowBadOnly);
    window.MenuLinkHide.SetChecked(false);
}

void WindowRules::DisableControls() {
    CheckForm& w = window_;
    EnableAll({&w.MenuFile, &w.MenuEdit, &w.MenuView, &w.MenuSearch, &w.MenuLink, &w.MenuReports, &w.ComOpen, &w.SpinLeft,
               &w.SpinRight, &w.Command1, &w.ComStart, &w.List1, &w.txtFileName, &w.ComHide},
              false);
    for (ToolButton* button : w.ToolButtons())
        if (button != &w.ToolInterMode && button != &w.ToolLocalMode && button != &w.ToolZephonMode) button->SetEnabled(false);
}

void WindowRules::EnableControls() {
    CheckForm& w = window_;
    EnableAll({&w.MenuFile, &w.MenuEdit, &w.MenuView, &w.MenuSearch, &w.MenuLink, &w.MenuReports, &w.ComOpen, &w.SpinLeft,
               &w.SpinRight, &w.Command1, &w.ComStart, &w.List1, &w.txtFileName, &w.ComHide, &w.ToolEnter, &w.ToolOpenDoc},
              true);
    w.MenuView.SetEnabled(!InBookmarksMode());  // there it isn't to be seen
    SetToolButtons();
    SetModeControls();
}

void WindowRules::SetModeControls() {
    CheckForm& w = window_;
    const std::array<std::pair<Menu*, ToolButton*>, 3> modes = {{{&w.MenuFileNormalMode, &w.ToolInterMode},
                                                                 {&w.MenuFileLocalMode, &w.ToolLocalMode},
                                                                 {&w.MenuFileZephonMode, &w.ToolZephonMode}}};
    for (std::size_t mode = 0; mode < modes.size(); ++mode) {
        const bool present = static_cast<std::int16_t>(mode) == settings_.ProgramMode;
        modes[mode].first->SetChecked(present);
        modes[mode].second->SetEnabled(!present);
    }
    for (Control* tool : std::initializer_list<Control*>{&w.ToolDocBrowser, &w.ToolDocSource, &w.ToolDocEditor, &w.ToolDocDelete,
                                                         &w.ToolDocReopen})
        tool->SetVisible(!InBookmarksMode());
}

bool WindowRules::EditorUsable() const {
    const bool hasFile = settings_.ProgramMode == kLocalMode || !Trim(session_.DocumentPath).empty();
    return hasFile && programs_.Exists(settings_.EditorPath);
}

void WindowRules::SetToolButtons() {
    CheckForm& w = window_;
    const bool document = w.txtFileName.ListIndex() >= 0;
    EnableAll({&w.ToolSave, &w.ToolCopyReports, &w.ToolDocBrowser, &w.ToolDocSource, &w.ToolDocReopen}, document);
    w.ToolDocEditor.SetEnabled(document && EditorUsable());
    w.ToolDocDelete.SetEnabled(document && w.txtFileName.Count() > 1);
    EnableAll({&w.ToolCopyURL, &w.ToolLinkQuest, &w.ToolLinkView, &w.ToolLinkCheck, &w.ToolLinkBrowser}, HasRow());
    EnableAll({&w.ToolOpenDoc, &w.ToolEnter}, !InBookmarksMode());
}

void WindowRules::ShowPosition() {
    const char* what = InBookmarksMode() ? "Bookmark Bar " : "Document ";
    window_.LabelInd.SetCaption(what + std::to_string(window_.txtFileName.ListIndex() + 1) + " of " +
                                std::to_string(window_.txtFileName.Count()));
}

std::vector<std::pair<Control*, const char*>> ToolTips(CheckForm& w) {
    return {{&w.ToolInterMode, "Change to Internet Mode"},
            {&w.ToolLocalMode, "Change to Local Mode"},
            {&w.ToolZephonMode, "Zephon Bookmarks Mode"},
            {&w.ToolEnter, "Enterprise Link Check"},
            {&w.ToolOpenDoc, "New (Clear Cache)"},
            {&w.ToolSave, "Save Document Reports"},
            {&w.ToolCopyReports, "Copy Reports To Clipboard"},
            {&w.ToolDocBrowser, "Open Selected Document In Browser"},
            {&w.ToolDocEditor, "Open Selected Document In Editor"},
            {&w.ToolDocSource, "View Document Source"},
            {&w.ToolDocReopen, "Re-Open Current Document"},
            {&w.ToolDocDelete, "Remove Selected Document"},
            {&w.ToolCopyURL, "Copy Current URL"},
            {&w.ToolLinkQuest, "Show Questionable Links Only"},
            {&w.ToolLinkView, "View Selected Link"},
            {&w.ToolLinkCheck, "Check Selected Link"},
            {&w.ToolLinkBrowser, "Open Selected Link In Browser"},
            {&w.SpinLeft, "Next or Previous Document"},
            {&w.SpinRight, "Next or Previous Document"}};
}

void WindowRules::ShowToolTips() {
    for (const auto& [control, tip] : ToolTips(window_)) {
        Control* button = control;
        const char* text = tip;
        button->MouseMove = [this, button, text] { button->SetTip(settings_.ShowToolHints != 0 ? text : ""); };
    }
}

void WindowRules::MenuFile_Click() {
    CheckForm& w = window_;
    EnableAll(
        {&w.MenuFileLoadList, &w.MenuFileSaveList, &w.MenuFileOpen, &w.MenuFileOpenSite, &w.MenuFileNew, &w.MenuFileEnterprise},
        !InBookmarksMode());
    w.MenuZephonSave.SetVisible(InBookmarksMode());
    w.MenuZephonSave.SetEnabled(InBookmarksMode() && BookmarksChanged != 0);
}

void WindowRules::MenuEdit_Click() {
    CheckForm& w = window_;
    EnableAll({&w.MenuEditAbove, &w.MenuEditBelow, &w.MenuEditCopy, &w.MenuEditCopyLink, &w.MenuEditReset}, HasRow());
    EnableAll({&w.MenuEditSelectAll, &w.MenuEditSelectNone, &w.MenuLinkHide}, w.List1.Count() > 0);
    w.MenuEditPaste.SetEnabled(!InBookmarksMode());
    EnableAll({&w.MenuEditContain, &w.MenuEditDontContain}, !InBookmarksMode() && HasRow());
}

void WindowRules::MenuView_Click() {
    CheckForm& w = window_;
    const int selected = w.txtFileName.ListIndex();
    const bool document = HasRow() || (selected >= 0 && w.txtFileName.ItemData(selected) > 0);
    EnableAll({&w.MenuViewBrowser, &w.MenuViewReload, &w.MenuViewSearch, &w.MenuViewWhois, &w.MenuViewDelete}, document);
    w.MenuViewSource.SetEnabled(document && programs_.Exists(settings_.SourceViewerPath));
    w.MenuViewEditor.SetEnabled(document && EditorUsable());
}

bool WindowRules::LinkOpensAsDocument() const {
    const std::int32_t link = window_.List1.ItemData(window_.List1.ListIndex());
    if (!session_.Links.Has(link)) return false;
    const std::string& address = session_.Links.LinkUrls[static_cast<std::size_t>(link)];
    if (IsIgnoredDocument(address, settings_.DocumentTypes, settings_.IgnoreOpenPathList)) return false;
    if (settings_.ProgramMode != kLocalMode) return true;
    const std::int32_t document = window_.txtFileName.ItemData(window_.txtFileName.ListIndex());
    return StartsWith(address, store_.ReadHeader(document)[0]);
}

void WindowRules::MenuLink_Click() {
    CheckForm& w = window_;
    for (Menu* entry : w.MenuLink.Entries())
        if (entry != nullptr) entry->SetEnabled(HasRow());
    if (HasRow()) w.MenuLinkOpen.SetEnabled(!InBookmarksMode() && LinkOpensAsDocument());
    w.MenuLinkDelete.SetEnabled(InBookmarksMode() && HasRow());
    w.MenuLinkHide.SetEnabled(HasRow() || session_.Links.LinkCount > 0);
}

void WindowRules::MenuReports_Click() {
    CheckForm& w = window_;
    EnableAll({&w.MenuReportsCopy, &w.MenuReportsSave}, !InBookmarksMode() && w.List1.Count() > 0);
    w.MenuReportsManage.SetEnabled(!InBookmarksMode());
}

void WindowRules::MenuSearch_Click() { EnableAll({&window_.MenuSearchURL, &window_.MenuSearchText}, window_.List1.Count() > 0); }

}  // namespace qv
