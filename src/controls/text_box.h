// A line or a page of text that the user edits.
#pragma once

#include <string>

#include "controls/control.h"

namespace qv {

class TextBox : public Control {
   public:
    TextBox(Form& form, std::string name, Control* container = nullptr, int index = -1);
    bool CanFocus() const override { return true; }
    const std::string& Text() const { return text_; }
    void SetText(std::string text);  // fires Change if that changes it; nothing stays selected

    // The selected part: a start and a length in bytes, held inside the text.
    std::string Selected() const { return text_.substr(selectionStart_, selectionLength_); }
    std::size_t SelectionStart() const { return selectionStart_; }
    std::size_t SelectionLength() const { return selectionLength_; }
    void Select(std::size_t start, std::size_t length);
    void SelectAll() { Select(0, text_.size()); }

    void TypeOver(const std::string& text);   // what a user types in place of the selected part; behind the text if there is none
    void EnterText(const std::string& text);  // what a user does who replaces the whole text: focus, Change, one KeyUp

    bool Masked() const { return masked_; }  // shown as dots
    void SetMasked(bool masked) { masked_ = masked; }
    bool MultiLine() const { return multiLine_; }
    void SetMultiLine(bool multiLine) { multiLine_ = multiLine; }
    bool ReadOnly() const { return readOnly_; }  // a user can select and copy, and not change
    void SetReadOnly(bool readOnly) { readOnly_ = readOnly; }

    Event Change, MouseDown;

   private:
    std::string text_;
    std::size_t selectionStart_ = 0;
    std::size_t selectionLength_ = 0;
    bool masked_ = false;
    bool multiLine_ = false;
    bool readOnly_ = false;
};

}  // namespace qv
