// The main window.
#pragma once

#include "desktop/form_window.h"
#include "mainwindow/check_form.h"

namespace qv {

class CheckFormView : public FormWindow {
   public:
    CheckFormView(CheckForm& form, QWidget* parent);

   private:
    QLayout* ToolRow(CheckForm& form);
    QLayout* DocumentColumn(CheckForm& form);
    QLayout* ButtonColumn(CheckForm& form);
    QLayout* LinkPart(CheckForm& form);
    QWidget* Indicator(CheckForm& form);
    QWidget* StatusRow(CheckForm& form);
    void NameForAssistance(CheckForm& form);
};

}  // namespace qv
