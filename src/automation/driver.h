// Carries out what a user would do to a control, and tells what it shows. A program without windows does so on the control
// objects; one with windows sends mouse and key events to the widgets. Whether a user could do it has been made sure before.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "controls/control.h"
#include "controls/form.h"

namespace qv {

class Driver {
   public:
    virtual ~Driver() = default;
    virtual nlohmann::json State(Control& control) = 0;
    virtual void Click(Control& control) = 0;
    virtual void EnterText(Control& box, const std::string& text) = 0;  // a text box, or a combo box with free text
    virtual void SetValue(Control& control, long value) = 0;            // check box, option button, scroll bar, tab strip
    virtual void ClickRow(Control& list, int row) = 0;
    virtual void DoubleClickRow(Control& list, int row) = 0;
    virtual void RightClickRow(Control& list, int row) = 0;
    virtual void Press(Control& control, Key key) = 0;
    virtual void MouseDown(Control& button) = 0;
    virtual void MouseUp(Control& button) = 0;
    virtual void Hover(Control& control) = 0;
    virtual void Focus(Control& control) = 0;
    virtual void OpenMenu(Control& menu) = 0;
    virtual void CloseForm(Form& form) = 0;
    virtual void ActivateForm(Form& form) = 0;
};

// On the control objects themselves.
class ControlDriver : public Driver {
   public:
    nlohmann::json State(Control& control) override;
    void Click(Control& control) override;
    void EnterText(Control& box, const std::string& text) override;
    void SetValue(Control& control, long value) override;
    void ClickRow(Control& list, int row) override;
    void DoubleClickRow(Control& list, int row) override;
    void RightClickRow(Control& list, int row) override;
    void Press(Control& control, Key key) override;
    void MouseDown(Control& button) override;
    void MouseUp(Control& button) override;
    void Hover(Control& control) override;
    void Focus(Control& control) override;
    void OpenMenu(Control& menu) override;
    void CloseForm(Form& form) override;
    void ActivateForm(Form& form) override;
};

}  // namespace qv
