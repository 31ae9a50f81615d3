#include "controls/menu.h"

#include "controls/form.h"

namespace qv {

Menu::Menu(Form& form, std::string name, std::string caption) : Captioned(form, std::move(name), ControlKind::Menu) {
    SetCaption(std::move(caption));
    form.menus_.push_back(this);
}

Menu::Menu(Menu& parent, std::string name, std::string caption)
    : Captioned(parent.ParentForm(), std::move(name), ControlKind::Menu, &parent), parent_(&parent) {
    SetCaption(std::move(caption));
    parent.entries_.push_back(this);
}

void Menu::SetChecked(bool checked) {
    if (checked_ == checked) return;
    checked_ = checked;
    Changed(Aspect::Value);
}

}  // namespace qv
