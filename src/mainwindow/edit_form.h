// The window that shows one link, and changes it.
#pragma once

#include "controls/form.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "mainwindow/check_form.h"
#include "session/link_rows.h"
#include "session/session.h"

namespace qv {

class EditForm : public Form {
   public:
    struct Parts {
        CheckForm& window;
        Session& session;
        LinkRows& rows;
    };
    explicit EditForm(Parts parts);

    Label Label1{*this, "Label1", "Link Text:"};
    TextBox TextLink{*this, "TextLink"};
    Label Label2{*this, "Label2", "Link URL:"};
    TextBox TextURL{*this, "TextURL"};
    Label Label3{*this, "Label3", "Local File:"};
    TextBox TextFile{*this, "TextFile"};
    CommandButton ComOkay{*this, "ComOkay", "&Okay"};
    CommandButton ComCancel{*this, "ComCancel", "&Close"};

    bool Okay() const { return okay_; }  // how it was closed

   private:
    void Form_Load();
    void ComOkay_Click();

    Parts p_;
    std::int32_t link_ = 0;
    bool okay_ = false;
};

}  // namespace qv
