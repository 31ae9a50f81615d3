// The windows around reports and logs.
#pragma once

#include "desktop/form_window.h"
#include "reports/frmform.h"
#include "reports/report_form.h"
#include "reports/report_manager_form.h"
#include "reports/report_select_form.h"

namespace qv {

class ReportFormView : public FormWindow {
   public:
    ReportFormView(ReportForm& form, QWidget* parent);
};

class ReportOptionsView : public FormWindow {
   public:
    ReportOptionsView(frmform& form, QWidget* parent);
};

class ReportManagerView : public FormWindow {
   public:
    ReportManagerView(ReportManagerForm& form, QWidget* parent);
};

class ReportSelectView : public FormWindow {
   public:
    ReportSelectView(ReportSelectForm& form, QWidget* parent);
};

}  // namespace qv
