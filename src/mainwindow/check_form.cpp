#include "mainwindow/check_form.h"

namespace qv {

CheckForm::CheckForm(WindowSystem& windows) : Form(windows, "CheckForm", "Zephon Quorvantis - Internet Mode") {
    SetSize(860, 620);
    Picture1.SetVisible(false);
    FontNamePicture.SetVisible(false);
    MenuZephonSave.SetVisible(false);
    MenuLinkDelete.SetVisible(false);
    ComStart.SetEnabled(false);
    ComStop.SetEnabled(false);
    ComSkip.SetEnabled(false);
    SpinLeft.SetEnabled(false);
    SpinRight.SetEnabled(false);
}

std::vector<ToolButton*> CheckForm::ToolButtons() {
    return {&ToolInterMode,   &ToolLocalMode, &ToolZephonMode,  &ToolEnter,     &ToolOpenDoc,   &ToolSave,
            &ToolCopyReports, &ToolCopyURL,   &ToolLinkBrowser, &ToolLinkCheck, &ToolLinkView,  &ToolLinkQuest,
            &ToolDocDelete,   &ToolDocReopen, &ToolDocSource,   &ToolDocEditor, &ToolDocBrowser};
}

}  // namespace qv
