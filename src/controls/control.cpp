#include "controls/control.h"

#include <array>

#include "controls/form.h"

namespace qv {

std::string_view KindName(ControlKind kind) {
    static constexpr std::array<std::string_view, 17> kNames = {
        "Form",         "Label",   "CommandButton", "ToolButton",  "Frame",     "Picture",   "Menu",     "TextBox", "CheckBox",
        "OptionButton", "ListBox", "ComboBox",      "ProgressBar", "ScrollBar", "StatusBar", "TabStrip", "Timer"};
    return kNames[static_cast<std::size_t>(kind)];
}

Control::Control(Form& form, std::string name, ControlKind kind, Control* container, int index)
    : form_(&form), container_(container), name_(std::move(name)), kind_(kind), index_(index) {
    form.controls_.push_back(this);
}

Control::Control(FormTag, Form* self, std::string name) : form_(self), name_(std::move(name)), kind_(ControlKind::Form) {}

Control::~Control() = default;

std::string Control::AddressName() const { return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")"; }

void Control::SetEnabled(bool enabled) {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    Changed(Aspect::Enabled);
    if (!enabled) form_->KeepFocusUsable();
}

void Control::SetVisible(bool visible) {
    if (visible_ == visible) return;
    visible_ = visible;
    Changed(Aspect::Visible);
    if (!visible) form_->KeepFocusUsable();
}

void Control::SetTip(std::string tip) {
    if (tip_ == tip) return;
    tip_ = std::move(tip);
    Changed(Aspect::Tip);
}

bool Control::Usable() const {
    if (!enabled_ || !visible_) return false;
    if (container_ != nullptr) return container_->Usable();
    return form_ == this || form_->Usable();
}

bool Control::Showing() const {
    if (!visible_) return false;
    if (container_ != nullptr) return container_->Showing();
    return form_ == this || form_->Showing();
}

void Control::SetFocus() {
    if (CanFocus() && Usable()) form_->MoveFocus(this);
}

bool Control::HasFocus() const { return form_->Focus() == this; }

void Control::Changed(Aspect aspect) {
    if (observer_ != nullptr) observer_->ControlChanged(*this, aspect);
}

}  // namespace qv
