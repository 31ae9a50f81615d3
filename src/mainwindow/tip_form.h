// The Tip of the Day.
#pragma once

#include <string>
#include <vector>

#include "controls/form.h"
#include "controls/simple_controls.h"
#include "platform/files.h"
#include "platform/settings_store.h"
#include "session/session.h"

namespace qv {

// Closes itself at once when tips are turned off.
class TipForm : public Form {
   public:
    TipForm(WindowSystem& windows, const Files& files, SettingsStore& store, const Session& session);

    Label Label1{*this, "Label1", "Did you know..."};
    Label lblTipText{*this, "lblTipText"};
    CheckBox chkLoadTipsAtStartup{*this, "chkLoadTipsAtStartup", "&Show Tips at Startup"};
    CommandButton cmdNextTip{*this, "cmdNextTip", "&Next Tip"};
    CommandButton cmdOK{*this, "cmdOK", "OK"};

   private:
    void Form_Load();
    bool LoadTips(const std::string& fileName);
    void NextTip();
    void DisplayCurrentTip();

    const Files& files_;
    SettingsStore& store_;
    const Session& session_;
    std::vector<std::string> tips_;
    int currentTip_ = 1;
};

}  // namespace qv
