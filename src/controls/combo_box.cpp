#include "controls/combo_box.h"

#include <cstddef>

namespace qv {
namespace {
const std::string kNoText;
}

ComboBox::ComboBox(Form& form, std::string name, Control* container)
    : Control(form, std::move(name), ControlKind::ComboBox, container) {}

const std::string& ComboBox::ItemText(int item) const {
    return Has(item) ? items_[static_cast<std::size_t>(item)].text : kNoText;
}
std::int32_t ComboBox::ItemData(int item) const { return Has(item) ? items_[static_cast<std::size_t>(item)].itemData : 0; }

void ComboBox::AddItem(std::string text, std::int32_t itemData) {
    items_.push_back({std::move(text), itemData});
    Changed(Aspect::Items);
}

void ComboBox::RemoveItem(int item) {
    if (!Has(item)) return;
    items_.erase(items_.begin() + item);
    if (index_ == item)
        index_ = -1;
    else if (index_ > item)
        --index_;
    Changed(Aspect::Items);
}

void ComboBox::Clear() {
    items_.clear();
    index_ = -1;
    text_.clear();
    Changed(Aspect::Items);
}

void ComboBox::SetListIndex(int item) {
    if (item == index_ || (item != -1 && !Has(item))) return;
    index_ = item;
    text_ = ItemText(item);
    Changed(Aspect::Index);
    Click();
}

void ComboBox::SetText(std::string text) {
    index_ = -1;
    if (text_ == text) {
        Changed(Aspect::Index);
        return;
    }
    text_ = std::move(text);
    Changed(Aspect::Text);
    Change();
}

void ComboBox::EnterText(const std::string& text) {
    SetFocus();
    SetText(text);
    KeyUp(Key::Character);
}

void ComboBox::ClickItem(int item) {
    if (!Has(item)) return;
    SetFocus();
    index_ = item;
    text_ = ItemText(item);
    Changed(Aspect::Index);
    Click();
}

}  // namespace qv
