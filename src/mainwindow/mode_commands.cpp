#include "mainwindow/mode_commands.h"

namespace qv {

void ModeCommands::ResetMode() {
    CheckForm& w = window_;
    if (settings_.ProgramMode == kBookmarksMode && rules_.BookmarksChanged != 0) {
        const std::string answer = w.Windows().ShowMessage({.text = "Update Zephon Bookmarks with your changes?",
                                                            .buttons = {"Yes", "No"},
                                                            .defaultButton = "Yes",
                                                            .question = true});
        if (answer == "Yes" && SaveBookmarks) SaveBookmarks();
    }
    for (Menu* menu : {&w.MenuView, &w.MenuLinkOpen}) {
        menu->SetVisible(true);
        menu->SetEnabled(true);
    }
    for (Menu* menu : {&w.MenuZephonSave, &w.MenuLinkDelete}) {
        menu->SetVisible(false);
        menu->SetEnabled(false);
    }
    w.MenuFileZephonMode.SetCaption("&Zephon Bookmarks Mode");
    settings_.ProgramMode = kInternetMode;
    if (session_.MainWindowShown != 0) MenuFileNew_Click();
    w.ComOpen.SetVisible(true);
    w.Command1.SetVisible(true);
    w.lblFileName.SetCaption("Web Document:");
    w.StatusBar1.SetText("");
}

void ModeCommands::Enter(std::int16_t mode, const char* windowCaption, const char* listCaption) {
    if (settings_.ProgramMode == mode) return;
    ResetMode();
    settings_.ProgramMode = mode;
    window_.SetCaption(windowCaption);
    window_.lblFileName.SetCaption(listCaption);
    window_.Command1.SetCaption(kCaptionCheckSite);
    window_.ComOpen.SetCaption(kCaptionCheckDocument);
    window_.MenuLinkView.SetCaption("&View Selected Link");
    rules_.SetModeControls();
}

void ModeCommands::MenuFileNormalMode_Click() { Enter(kInternetMode, "Zephon Quorvantis - Internet Mode", "Web Documents:"); }

void ModeCommands::MenuFileLocalMode_Click() { Enter(kLocalMode, "Zephon Quorvantis - Local Mode", "Local Documents:"); }

}  // namespace qv
