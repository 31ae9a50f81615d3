// A window for a form that has no view of its own: everything below one another, so that nothing can be missing.
#pragma once

#include "desktop/form_window.h"

namespace qv {

class PlainView : public FormWindow {
   public:
    PlainView(Form& form, QWidget* parent);

   private:
    QWidget* MakeAny(Control& control);
};

}  // namespace qv
