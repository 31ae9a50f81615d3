// The small windows: start window and About, tip of the day, status codes.
#pragma once

#include "check/code_form.h"
#include "desktop/form_window.h"
#include "mainwindow/initial_form.h"
#include "mainwindow/tip_form.h"

namespace qv {

class InitialFormView : public FormWindow {
   public:
    InitialFormView(InitialForm& form, QWidget* parent);

   protected:
    void paintEvent(QPaintEvent* event) override;
};

class TipFormView : public FormWindow {
   public:
    TipFormView(TipForm& form, QWidget* parent);
};

class CodeFormView : public FormWindow {
   public:
    CodeFormView(CodeForm& form, QWidget* parent);
};

}  // namespace qv
