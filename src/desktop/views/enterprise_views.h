// The windows of the Enterprise check: what is checked, the choice of entries, the weekly job.
#pragma once

#include "desktop/form_window.h"
#include "enterprise/batch_form.h"
#include "enterprise/schedule_form.h"
#include "enterprise/select_form.h"

namespace qv {

class BatchFormView : public FormWindow {
   public:
    BatchFormView(BatchForm& form, QWidget* parent);

   private:
    QWidget* ListStep(BatchForm& form);
    QWidget* LogStep(BatchForm& form);
    QWidget* AutomaticStep(BatchForm& form);
};

class SelectFormView : public FormWindow {
   public:
    SelectFormView(SelectForm& form, QWidget* parent);
};

class ScheduleFormView : public FormWindow {
   public:
    ScheduleFormView(ScheduleForm& form, QWidget* parent);

   private:
    QWidget* WeekBox(ScheduleForm& form);
    void AddSpinner(QHBoxLayout& row, TextBox& text, ScrollBar& bar);
};

}  // namespace qv
