// Which window shows which form.
#pragma once

#include "desktop/form_window.h"

namespace qv {

// The window of a form, laid out and not yet open. `parent`: the window that it stands in front of, or null. The caller owns it.
FormWindow* MakeView(Form& form, QWidget* parent);

}  // namespace qv
