// A list that drops down, with a free text above it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/control.h"

namespace qv {

class ComboBox : public Control {
   public:
    ComboBox(Form& form, std::string name, Control* container = nullptr);
    bool CanFocus() const override { return true; }

    int Count() const { return static_cast<int>(items_.size()); }
    const std::string& ItemText(int item) const;  // empty for an item that isn't there
    std::int32_t ItemData(int item) const;        // 0 likewise
    void AddItem(std::string text, std::int32_t itemData = 0);
    void RemoveItem(int item);  // the text above stays; no item is current if it was this one
    void Clear();               // also empties the text, without an event

    int ListIndex() const { return index_; }
    // Makes an item current (-1: none) and shows its text above (empty for none). Fires Click when the index changes.
    void SetListIndex(int item);
    const std::string& Text() const { return text_; }
    void SetText(std::string text);  // the free text: no item is current then. Fires Change if the text changes

    void SelectAll() { Changed(Aspect::Selection); }  // of the text above

    void EnterText(const std::string& text);  // a user replaces the text: focus, Change, one KeyUp
    void ClickItem(int item);                 // a user picks an item: it becomes current, then Click, each time

    Event Click, Change;

   private:
    struct Item {
        std::string text;
        std::int32_t itemData = 0;
    };
    bool Has(int item) const { return item >= 0 && item < Count(); }

    std::vector<Item> items_;
    std::string text_;
    int index_ = -1;
};

}  // namespace qv
