// What scripts do and see, at the real windows: mouse and key events are sent to the widgets, and states are read from them.
#pragma once

#include "automation/driver.h"
#include "desktop/desktop.h"

namespace qv {

class QtDriver : public Driver {
   public:
    explicit QtDriver(Desktop& desktop) : desktop_(desktop) {}

    nlohmann::json State(Control& control) override;
    nlohmann::json Entries(Menu& menu) override;
    void Click(Control& control) override;
    void EnterText(Control& box, const std::string& text) override;
    void SetValue(Control& control, long value) override;
    void ClickRow(Control& list, int row) override;
    void DoubleClickRow(Control& list, int row) override;
    void RightClickRow(Control& list, int row) override;
    void Press(Control& control, Key key) override;
    void MouseDown(Control& button) override;
    void MouseUp(Control& button) override;
    void Hover(Control& control) override;
    void Focus(Control& control) override;
    void OpenMenu(Control& menu) override;
    void CloseMenus() override;
    void CloseForm(Form& form) override;
    void ActivateForm(Form& form) override;
    void Answer(WindowSystem& windows, const std::optional<std::string>& value) override;

   private:
    Binder* BinderOf(const Control& control) const;
    QWidget* TargetOf(const Control& control) const;
    void FocusOn(Control& control) const;

    Desktop& desktop_;
};

}  // namespace qv
