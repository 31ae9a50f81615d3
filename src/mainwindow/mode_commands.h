// Changing between Internet mode and Local mode.
#pragma once

#include <functional>

#include "mainwindow/check_form.h"
#include "mainwindow/window_rules.h"
#include "session/session.h"

namespace qv {

class ModeCommands {
   public:
    ModeCommands(CheckForm& window, WindowRules& rules, Session& session, Settings& settings)
        : window_(window), rules_(rules), session_(session), settings_(settings) {}

    // Enter a mode, which clears the session once the main window has been shown. The present mode: nothing happens.
    void MenuFileNormalMode_Click();
    void MenuFileLocalMode_Click();

    void ResetMode();  // leaves the present mode

    std::function<void()> MenuFileNew_Click;
    std::function<void()> SaveBookmarks;  // of the Zephon Bookmarks mode

   private:
    void Enter(std::int16_t mode, const char* windowCaption, const char* listCaption);

    CheckForm& window_;
    WindowRules& rules_;
    Session& session_;
    Settings& settings_;
};

}  // namespace qv
