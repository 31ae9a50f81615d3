// Binders of the controls that take a text: boxes of one line and of many, and lists that drop down below a text.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "controls/combo_box.h"
#include "controls/text_box.h"
#include "desktop/binder.h"

namespace qv {

class LineBinder : public Binder {
   public:
    LineBinder(TextBox& box, QLineEdit* widget);

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;
    void MousePressed() override;

   private:
    void ShowSelection();
    void TakeSelection();
    QLineEdit* line_;
};

// A page's line ends are a line feed in the widget, and a carriage return with a line feed in the control.
class PageBinder : public Binder {
   public:
    PageBinder(TextBox& box, QPlainTextEdit* widget);

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;
    void MousePressed() override;

   private:
    QPlainTextEdit* page_;
};

class ComboBinder : public Binder {
   public:
    ComboBinder(ComboBox& combo, QComboBox* widget);

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    void ShowItems();
    void ShowText();
    QComboBox* combo_;
};

}  // namespace qv
