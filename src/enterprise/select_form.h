// The dialog that chooses entries of the site database for the Enterprise check.
#pragma once

#include <string>
#include <vector>

#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "sitedb/site_database.h"

namespace qv {

class SelectForm : public Form {
   public:
    struct Parts {
        WindowSystem& windows;
        SiteDatabase& sites;
        std::vector<std::string>& EnterpriseList;  // the choice before, and after Done
    };
    explicit SelectForm(Parts parts);

    Label Label1{*this, "Label1", "Documents && Web Sites in Database:"};
    ListBox List1{*this, "List1", ListBox::SelectionKind::Multiple};
    CommandButton ComAdd{*this, "ComAdd", "A&dd To Checklist"};
    CommandButton ComRemove{*this, "ComRemove", "&Remove"};
    CommandButton ComRemoveAll{*this, "ComRemoveAll", "Remove &All"};
    Label Label2{*this, "Label2", "Enterprise Check List"};
    ListBox List2{*this, "List2", ListBox::SelectionKind::Multiple};
    CommandButton ComOkay{*this, "ComOkay", "D&one"};
    CommandButton ComCancel{*this, "ComCancel", "&Cancel"};

    bool SelectCancelled() const { return cancelled_; }  // also when it was closed without a button

   private:
    void Form_Load();
    void ComAdd_Click();
    void ComRemove_Click();
    void ComRemoveAll_Click();
    void ComOkay_Click();

    Parts p_;
    bool cancelled_ = true;
};

}  // namespace qv
