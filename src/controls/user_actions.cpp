#include "controls/user_actions.h"

#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/menu.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"

namespace qv::user {
namespace {

template <class T>
T& As(Control& control) {
    return static_cast<T&>(control);
}

void ClickButton(Control& control) {
    control.SetFocus();
    if (control.Kind() == ControlKind::CommandButton) {
        auto& button = As<CommandButton>(control);
        button.MouseDown();
        button.MouseUp();
        button.Click();
    } else {
        auto& button = As<ToolButton>(control);
        button.MouseDown();
        button.MouseUp();
        button.Click();
    }
}

void PressSpace(Control& control) {
    switch (control.Kind()) {
        case ControlKind::CommandButton: As<CommandButton>(control).Click(); break;
        case ControlKind::CheckBox: As<CheckBox>(control).SetValue(As<CheckBox>(control).Checked() ? 0 : 1); break;
        case ControlKind::OptionButton: As<OptionButton>(control).SetValue(true); break;
        case ControlKind::ListBox: As<ListBox>(control).ToggleCurrent(); break;
        case ControlKind::TextBox: As<TextBox>(control).TypeOver(" "); break;
        default: break;
    }
}

}  // namespace

void Click(Control& control) {
    switch (control.Kind()) {
        case ControlKind::CommandButton:
        case ControlKind::ToolButton: ClickButton(control); break;
        case ControlKind::CheckBox:
            control.SetFocus();
            As<CheckBox>(control).SetValue(As<CheckBox>(control).Checked() ? 0 : 1);
            break;
        case ControlKind::OptionButton:
            control.SetFocus();
            As<OptionButton>(control).SetValue(true);
            break;
        case ControlKind::Label: As<Label>(control).Click(); break;
        case ControlKind::Picture: As<Picture>(control).Click(); break;
        case ControlKind::Menu: As<Menu>(control).Click(); break;
        case ControlKind::TextBox:
            control.SetFocus();
            As<TextBox>(control).MouseDown();
            break;
        default: control.SetFocus(); break;
    }
}

bool PressFormButton(Form& form, Key key) {
    CommandButton* button = key == Key::Escape ? form.CancelButton() : form.DefaultButton();
    Control* focused = form.Focus();
    const bool inPage = focused != nullptr && focused->Kind() == ControlKind::TextBox && As<TextBox>(*focused).MultiLine();
    if (key == Key::Enter && inPage) return false;  // it is a line end there
    if (key == Key::Enter && focused != nullptr && focused->Kind() == ControlKind::CommandButton)
        button = &As<CommandButton>(*focused);
    if (button == nullptr || !button->Usable()) return false;
    button->Click();
    return true;
}

void Press(Control& control, Key key) {
    control.SetFocus();
    control.ParentForm().KeyDown(key);
    control.KeyPress(key);
    if (key == Key::Space) PressSpace(control);
    if (key == Key::Delete && control.Kind() == ControlKind::TextBox) As<TextBox>(control).TypeOver("");
    if ((key == Key::Enter || key == Key::Escape) && PressFormButton(control.ParentForm(), key)) return;
    control.KeyUp(key);
}

void MouseDown(Control& button) {
    if (button.Kind() == ControlKind::ToolButton) As<ToolButton>(button).MouseDown();
    if (button.Kind() == ControlKind::CommandButton) {
        button.SetFocus();
        As<CommandButton>(button).MouseDown();
    }
}

void MouseUp(Control& button) {
    if (button.Kind() == ControlKind::ToolButton) As<ToolButton>(button).MouseUp();
    if (button.Kind() == ControlKind::CommandButton) As<CommandButton>(button).MouseUp();
}

void Hover(Control& control) { control.MouseMove(); }

void OpenMenu(Control& menu) {
    if (menu.Container() != nullptr) OpenMenu(*menu.Container());
    As<Menu>(menu).Click();
}

}  // namespace qv::user
