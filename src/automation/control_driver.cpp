#include <nlohmann/json.hpp>

#include "automation/driver.h"
#include "automation/state_json.h"
#include "controls/combo_box.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "controls/user_actions.h"
#include "controls/window_system.h"

namespace qv {

nlohmann::json ControlDriver::State(Control& control) { return StateOf(control); }

nlohmann::json ControlDriver::Entries(Menu& menu) { return EntriesOf(menu); }

void ControlDriver::Click(Control& control) { user::Click(control); }

void ControlDriver::EnterText(Control& box, const std::string& text) {
    if (box.Kind() == ControlKind::ComboBox)
        static_cast<ComboBox&>(box).EnterText(text);
    else
        static_cast<TextBox&>(box).EnterText(text);
}

void ControlDriver::SetValue(Control& control, long value) {
    control.SetFocus();
    switch (control.Kind()) {
        case ControlKind::CheckBox: static_cast<CheckBox&>(control).SetValue(value != 0 ? 1 : 0); break;
        case ControlKind::OptionButton: static_cast<OptionButton&>(control).SetValue(value != 0); break;
        case ControlKind::ScrollBar: static_cast<ScrollBar&>(control).SetValue(value); break;
        case ControlKind::TabStrip: static_cast<TabStrip&>(control).ClickTab(static_cast<int>(value)); break;
        default: break;
    }
}

void ControlDriver::ClickRow(Control& list, int row) {
    if (list.Kind() == ControlKind::ComboBox)
        static_cast<ComboBox&>(list).ClickItem(row);
    else
        static_cast<ListBox&>(list).ClickRow(row);
}

void ControlDriver::DoubleClickRow(Control& list, int row) {
    if (list.Kind() == ControlKind::ComboBox)
        static_cast<ComboBox&>(list).ClickItem(row);
    else
        static_cast<ListBox&>(list).DoubleClickRow(row);
}

void ControlDriver::RightClickRow(Control& list, int row) {
    if (list.Kind() == ControlKind::ListBox) static_cast<ListBox&>(list).RightClickRow(row);
}

void ControlDriver::Press(Control& control, Key key) { user::Press(control, key); }
void ControlDriver::MouseDown(Control& button) { user::MouseDown(button); }
void ControlDriver::MouseUp(Control& button) { user::MouseUp(button); }
void ControlDriver::Hover(Control& control) { user::Hover(control); }
void ControlDriver::Focus(Control& control) { control.SetFocus(); }
void ControlDriver::OpenMenu(Control& menu) { user::OpenMenu(menu); }
void ControlDriver::CloseForm(Form& form) { form.Close(); }
void ControlDriver::ActivateForm(Form& form) { form.Windows().Activate(form); }
void ControlDriver::Answer(WindowSystem& windows, const std::optional<std::string>& value) { windows.Answer(value); }

}  // namespace qv
