// Carries out what a user would do to a control, and tells what it shows. A program without windows does so on the control
// objects; one with windows sends mouse and key events to the widgets. Whether a user could do it has been made sure before.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

#include "controls/control.h"
#include "controls/form.h"
#include "controls/menu.h"
#include "controls/window_system.h"

namespace qv {

class Driver {
   public:
    virtual ~Driver() = default;
    virtual nlohmann::json State(Control& control) = 0;
    virtual nlohmann::json Entries(Menu& menu) = 0;  // in order, as they are shown
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
    virtual void OpenMenu(Control& menu) = 0;  // with those above it, so that the opening rules run
    virtual void CloseMenus() = 0;
    virtual void CloseForm(Form& form) = 0;
    virtual void ActivateForm(Form& form) = 0;
    // A button of the message box on top, or the path that is chosen in the file dialog on top; nothing is the dialog's Cancel.
    virtual void Answer(WindowSystem& windows, const std::optional<std::string>& value) = 0;
};

// On the control objects themselves.
class ControlDriver : public Driver {
   public:
    nlohmann::json State(Control& control) override;
    nlohmann::json Entries(Menu& menu) override;
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
    void CloseMenus() override {}
    void CloseForm(Form& form) override;
    void ActivateForm(Form& form) override;
    void Answer(WindowSystem& windows, const std::optional<std::string>& value) override;
};

}  // namespace qv
