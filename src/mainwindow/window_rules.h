// What of the main window can be used, seen and checked in which state.
#pragma once

#include <utility>
#include <vector>

#include "mainwindow/check_form.h"
#include "platform/programs.h"
#include "session/document_store.h"
#include "session/session.h"

namespace qv {

// What each tool button and spin button is for: the tip that it shows while tips are wanted.
std::vector<std::pair<Control*, const char*>> ToolTips(CheckForm& window);

// Ends the hiding of good links. The rows are filled anew by whoever calls.
void ShowAllLinks(CheckForm& window, RunFlags& flags);

class WindowRules {
   public:
    WindowRules(CheckForm& window, Session& session, const Settings& settings, const Programs& programs,
                const DocumentStore& store)
        : window_(window), session_(session), settings_(settings), programs_(programs), store_(store) {}

    void DisableControls();  // before a long operation: all that could start another one
    void EnableControls();   // after it
    void SetModeControls();  // the check marks and the buttons of the modes
    void SetToolButtons();   // by what is selected
    void ShowPosition();     // LabelInd: "Document n of m"
    void ShowToolTips();     // the tips of the tool buttons, or none, as the settings say

    // The opening rules of the menus.
    void MenuFile_Click();
    void MenuEdit_Click();
    void MenuView_Click();
    void MenuLink_Click();
    void MenuReports_Click();
    void MenuSearch_Click();

    // What the menu of the Zephon Bookmarks mode needs to know: whether there are changes to save.
    Flag BookmarksChanged = kClear;

   private:
    bool EditorUsable() const;
    bool InBookmarksMode() const { return settings_.ProgramMode == kBookmarksMode; }
    bool HasRow() const { return window_.List1.ListIndex() >= 0; }
    bool LinkOpensAsDocument() const;

    CheckForm& window_;
    Session& session_;
    const Settings& settings_;
    const Programs& programs_;
    const DocumentStore& store_;
};

// Keeps the user from starting anything else for as long as it lives. The control with the focus has it again afterwards.
class HeldControls {
   public:
    HeldControls(CheckForm& window, WindowRules& rules) : rules_(rules), focus_(window.Focus()) { rules_.DisableControls(); }
    ~HeldControls() {
        rules_.EnableControls();
        if (focus_ != nullptr) focus_->SetFocus();
    }
    HeldControls(const HeldControls&) = delete;
    HeldControls& operator=(const HeldControls&) = delete;

   private:
    WindowRules& rules_;
    Control* focus_;
};

}  // namespace qv
