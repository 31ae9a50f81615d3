#include "controls/list_box.h"

#include <cstddef>

namespace qv {
namespace {
const std::string kNoText;
}

ListBox::ListBox(Form& form, std::string name, SelectionKind selection, Control* container)
    : Control(form, std::move(name), ControlKind::ListBox, container), selection_(selection) {}

const std::string& ListBox::Text(int row) const { return Has(row) ? rows_[static_cast<std::size_t>(row)].text : kNoText; }
std::int32_t ListBox::ItemData(int row) const { return Has(row) ? rows_[static_cast<std::size_t>(row)].itemData : 0; }
bool ListBox::Selected(int row) const { return Has(row) && rows_[static_cast<std::size_t>(row)].selected; }

void ListBox::AddItem(std::string text, std::int32_t itemData) {
    rows_.push_back({std::move(text), itemData, false});
    if (auto* observer = Observer()) observer->RowsAdded(*this, Count() - 1, 1);
}

void ListBox::SetText(int row, std::string text) {
    if (!Has(row)) return;
    rows_[static_cast<std::size_t>(row)].text = std::move(text);
    if (auto* observer = Observer()) observer->RowChanged(*this, row);
}

void ListBox::RemoveItem(int row) {
    if (!Has(row)) return;
    if (Selected(row)) --selectedCount_;
    rows_.erase(rows_.begin() + row);
    if (index_ == row)
        index_ = -1;
    else if (index_ > row)
        --index_;
    if (auto* observer = Observer()) observer->RowRemoved(*this, row);
}

void ListBox::Clear() {
    rows_.clear();
    index_ = -1;
    selectedCount_ = 0;
    Changed(Aspect::Items);
}

void ListBox::Mark(int row, bool selected) {
    auto& entry = rows_[static_cast<std::size_t>(row)];
    if (entry.selected == selected) return;
    entry.selected = selected;
    selectedCount_ += selected ? 1 : -1;
    if (auto* observer = Observer()) observer->RowChanged(*this, row);
}

void ListBox::MakeCurrent(int row) {
    if (!MultiSelect()) {
        if (Has(index_)) Mark(index_, false);
        if (Has(row)) Mark(row, true);
    }
    index_ = row;
    Changed(Aspect::Index);
}

void ListBox::SetListIndex(int row) {
    if (row == index_ || (row != -1 && !Has(row))) return;
    MakeCurrent(row);
    Click();
}

void ListBox::SetSelected(int row, bool selected) {
    if (!Has(row)) return;
    if (MultiSelect())
        Mark(row, selected);
    else if (selected != Selected(row))
        MakeCurrent(selected ? row : -1);
}

void ListBox::ClickRow(int row) {
    if (!Has(row)) return;
    SetFocus();
    MakeCurrent(row);
    if (MultiSelect()) Mark(row, !Selected(row));
    MouseDown(MouseButton::Left);
    Click();
}

void ListBox::DoubleClickRow(int row) {
    ClickRow(row);
    DblClick();
}

void ListBox::ToggleCurrent() {
    if (MultiSelect() && Has(index_)) {
        Mark(index_, !Selected(index_));
        Click();
    }
}

void ListBox::RightClickRow(int row) {
    if (!Has(row)) return;
    SetFocus();
    if (row != index_) {
        MakeCurrent(row);
        Click();
    }
    MouseDown(MouseButton::Right);
}

void ListBox::SetHorizontalExtent(long pixels) {
    extent_ = pixels;
    Changed(Aspect::Extent);
}

}  // namespace qv
