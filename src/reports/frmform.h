// The dialog that chooses which reports to write, and where to.
#pragma once

#include "controls/form.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "platform/files.h"
#include "session/session.h"

namespace qv {

class frmform : public Form {
   public:
    struct Parts {
        WindowSystem& windows;
        Files& files;
        const Session& session;
        Settings& settings;
    };
    explicit frmform(Parts parts);

    Label Label1{*this, "Label1", "Select One Of The Following:"};
    CheckBox CheckText{*this, "CheckText", "Save a Simple Text Report"};
    CheckBox CheckAscii{*this, "CheckAscii", "Save a Comma-Delimited Ascii Report"};
    CheckBox CheckHTML{*this, "CheckHTML", "Save an HTML Document (Web page) Report"};
    CheckBox CheckWhich{*this, "CheckWhich", "Save Questionable Links Only"};
    CheckBox CheckAllInOne{*this, "CheckAllInOne", "Save All Document Reports In a Single File"};
    CheckBox CheckOneOnly{*this, "CheckOneOnly", "Save the Selected Document Only"};
    Label lblFileName{*this, "lblFileName", "Current Folder for Reports:"};
    TextBox txtFileName{*this, "txtFileName"};
    CommandButton ComBrowse{*this, "ComBrowse", "C&hange Folder..."};
    CommandButton cmdOK{*this, "cmdOK", "&OK"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
    CommandButton ComHelp{*this, "ComHelp", "&Help"};

    bool Okay() const { return okay_; }  // how it was closed

   private:
    void Form_Load();
    void Form_Activate();
    void ComBrowse_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    std::string FolderOrDefault(std::string folder) const;

    Parts p_;
    bool okay_ = false;
    bool activated_ = false;
};

}  // namespace qv
