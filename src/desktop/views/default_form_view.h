// The window of the preferences.
#pragma once

#include "desktop/form_window.h"
#include "sitedb/default_form.h"

namespace qv {

class DefaultFormView : public FormWindow {
   public:
    DefaultFormView(DefaultForm& form, QWidget* parent);

   private:
    QWidget* ProgramsPage(DefaultForm& form);
    QWidget* OpenPage(DefaultForm& form);
    QWidget* AuthorizationPage(DefaultForm& form);
    QWidget* MailPage(DefaultForm& form);
    QWidget* LogInBox(Frame& frame, CheckBox& box, Label& first, TextBox& firstBox, Label& second, TextBox& secondBox);
    QLineEdit* Narrow(TextBox& box);
};

}  // namespace qv
