// The windows around reports and logs.
#pragma once

#include "desktop/form_window.h"
#include "reports/report_form.h"

namespace qv {

class ReportFormView : public FormWindow {
   public:
    ReportFormView(ReportForm& form, QWidget* parent);
};

}  // namespace qv
