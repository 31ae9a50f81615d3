// The start window, which is also the About window.
#pragma once

#include "controls/form.h"
#include "controls/simple_controls.h"

namespace qv {

class InitialForm : public Form {
   public:
    explicit InitialForm(WindowSystem& windows) : Form(windows, "InitialForm", "About Zephon Quorvantis") {
        SetSize(480, 260);
        Command1.SetVisible(false);
        SetDefaultButton(&Command1);
        SetCancelButton(&Command1);
        Command1.Click = [this] { Close(); };
    }

    Label Label1{*this, "Label1", "Zephon Quorvantis"};
    Label Label2{*this, "Label2", "The link checker for people who keep Web sites"};
    Label Label3{*this, "Label3"};  // what the start is doing
    CommandButton Command1{*this, "Command1", "&Close"};
};

}  // namespace qv
