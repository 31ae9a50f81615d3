// Menus and their entries. A top menu's Click is its opening rule; an entry's Click is its command.
#pragma once

#include <string>
#include <vector>

#include "controls/simple_controls.h"

namespace qv {

class Menu : public Captioned {
   public:
    Menu(Form& form, std::string name, std::string caption);    // a top menu
    Menu(Menu& parent, std::string name, std::string caption);  // an entry, or a sub-menu once it has entries

    bool Checked() const { return checked_; }
    void SetChecked(bool checked);

    Menu* ParentMenu() const { return parent_; }
    // In order of display; null stands for a separator.
    const std::vector<Menu*>& Entries() const { return entries_; }
    void AddSeparator() { entries_.push_back(nullptr); }

    Event Click;

   private:
    std::vector<Menu*> entries_;
    Menu* parent_ = nullptr;
    bool checked_ = false;
};

}  // namespace qv
