#include "controls/text_box.h"

#include <algorithm>

namespace qv {

TextBox::TextBox(Form& form, std::string name, Control* container, int index)
    : Control(form, std::move(name), ControlKind::TextBox, container, index) {}

void TextBox::SetText(std::string text) {
    if (text_ == text) return;
    text_ = std::move(text);
    selectionStart_ = selectionLength_ = 0;
    Changed(Aspect::Text);
    Change();
}

void TextBox::Select(std::size_t start, std::size_t length) {
    selectionStart_ = std::min(start, text_.size());
    selectionLength_ = std::min(length, text_.size() - selectionStart_);
    Changed(Aspect::Selection);
}

void TextBox::TypeOver(const std::string& text) {
    if (readOnly_) return;
    const std::size_t start = selectionLength_ == 0 ? text_.size() : selectionStart_;
    SetText(text_.substr(0, start) + text + text_.substr(start + selectionLength_));
}

void TextBox::EnterText(const std::string& text) {
    SetFocus();
    if (readOnly_) return;
    SetText(text);
    KeyUp(Key::Character);
}

}  // namespace qv
