// A list of rows, each with a text, a number and a selection flag. Rows are data: a view asks for those it shows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/control.h"

namespace qv {

class ListBox : public Control {
   public:
    enum class SelectionKind { Single, Multiple };

    ListBox(Form& form, std::string name, SelectionKind selection, Control* container = nullptr);
    bool CanFocus() const override { return true; }
    bool MultiSelect() const { return selection_ == SelectionKind::Multiple; }

    // Rows are numbered from 0. A row number that isn't there is passed over by the setters, and the getters give
    // an empty text, 0 and false for it.
    int Count() const { return static_cast<int>(rows_.size()); }
    const std::string& Text(int row) const;
    std::int32_t ItemData(int row) const;
    bool Selected(int row) const;
    int SelectedCount() const { return selectedCount_; }
    int ListIndex() const { return index_; }  // the current row, -1 for none

    void AddItem(std::string text, std::int32_t itemData = 0);
    void SetText(int row, std::string text);
    void RemoveItem(int row);  // the current row is none afterwards if it was this one; later rows move up
    void Clear();

    // The current row; in a list with single selection it is also the selected one. -1 for none. Fires Click when the
    // index changes.
    void SetListIndex(int row);
    void SetSelected(int row, bool selected);  // fires nothing

    // A user's left click on a row: MouseDown's part, the selection (a list with multiple selection toggles the row),
    // then Click, each time, also on the current row. DoubleClickRow adds DblClick.
    void ClickRow(int row);
    void DoubleClickRow(int row);
    void ToggleCurrent();         // the space key in a list with multiple selection
    void RightClickRow(int row);  // MouseDown with the right button

    long HorizontalExtent() const { return extent_; }  // pixels
    void SetHorizontalExtent(long pixels);

    Event Click, DblClick;
    EventOf<MouseButton> MouseDown;  // comes when the row under the pointer has become current and selection is done

   private:
    struct Row {
        std::string text;
        std::int32_t itemData = 0;
        bool selected = false;
    };
    bool Has(int row) const { return row >= 0 && row < Count(); }
    void MakeCurrent(int row);
    void Mark(int row, bool selected);

    std::vector<Row> rows_;
    SelectionKind selection_;
    int index_ = -1;
    int selectedCount_ = 0;
    long extent_ = 0;
};

}  // namespace qv
