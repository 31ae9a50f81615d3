#include "enterprise/select_form.h"

#include <algorithm>

#include "enterprise/enterprise_files.h"

namespace qv {
namespace {

// Moves rows to the end of the other list; gives whether there were any.
bool Move(ListBox& from, ListBox& to, bool selectedOnly) {
    bool moved = false;
    for (int row = 0; row < from.Count();) {
        if (selectedOnly && !from.Selected(row)) {
            ++row;
            continue;
        }
        to.AddItem(from.Text(row), from.ItemData(row));
        from.RemoveItem(row);
        moved = true;
    }
    return moved;
}

}  // namespace

SelectForm::SelectForm(Parts parts)
    : Form(parts.windows, "SelectForm", "Choose Documents/Sites to Check" + std::string(12, ' ')), p_(parts) {
    SetSize(780, 440);
    SetDefaultButton(&ComOkay);
    SetCancelButton(&ComCancel);
    for (CommandButton* button : {&ComAdd, &ComRemove, &ComRemoveAll}) button->SetEnabled(false);
    Load = [this] { Form_Load(); };
    List2.Click = [this] {
        if (List2.Count() > 0) ComRemove.SetEnabled(true);
    };
    ComAdd.Click = [this] { ComAdd_Click(); };
    ComRemove.Click = [this] { ComRemove_Click(); };
    ComRemoveAll.Click = [this] { ComRemoveAll_Click(); };
    ComOkay.Click = [this] { ComOkay_Click(); };
    ComCancel.Click = [this] { Close(); };
}

void SelectForm::Form_Load() {
    Centre();
    const auto& chosen = p_.EnterpriseList;
    const auto records = p_.sites.ReadAll();
    for (std::size_t i = 0; i < records.size(); ++i) {
        const auto number = static_cast<std::int32_t>(i + 1);
        const bool room = static_cast<std::size_t>(List2.Count()) <= chosen.size();
        ListBox& list = room && IsListed(chosen, number) ? List2 : List1;
        list.AddItem(EntryLine(records[i]), number);
    }
    if (List1.Count() > 0) {
        List1.SetListIndex(0);
        List1.SetSelected(0, true);
        ComAdd.SetEnabled(true);
    }
    ComRemoveAll.SetEnabled(List2.Count() > 0);
}

void SelectForm::ComAdd_Click() {
    if (Move(List1, List2, true)) ComRemoveAll.SetEnabled(true);
    if (List1.Count() == 0) ComAdd.SetEnabled(false);
}

void SelectForm::ComRemove_Click() {
    if (Move(List2, List1, true)) ComAdd.SetEnabled(true);
    if (List2.Count() == 0) ComRemoveAll.SetEnabled(false);
    ComRemove.SetEnabled(false);
}

void SelectForm::ComRemoveAll_Click() {
    Move(List2, List1, false);
    ComRemoveAll.SetEnabled(false);
    ComRemove.SetEnabled(false);
}

void SelectForm::ComOkay_Click() {
    p_.EnterpriseList.clear();
    for (int row = 0; row < List2.Count(); ++row) p_.EnterpriseList.push_back(std::to_string(List2.ItemData(row)));
    cancelled_ = false;
    Close();
}

}  // namespace qv
