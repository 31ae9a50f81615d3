// The wizard of outgoing mail.
#pragma once

#include "desktop/form_window.h"
#include "mail/config_form.h"

namespace qv {

class ConfigFormView : public FormWindow {
   public:
    ConfigFormView(ConfigForm& form, QWidget* parent);

};

}  // namespace qv
