// The window that mails finished reports.
#pragma once

#include "desktop/form_window.h"
#include "mail/email_form.h"

namespace qv {

class EmailFormView : public FormWindow {
   public:
    EmailFormView(EmailForm& form, QWidget* parent);
};

}  // namespace qv
