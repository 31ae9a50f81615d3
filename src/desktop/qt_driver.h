// What scripts do and see, at the real windows: mouse and key events are sent to the widgets, and states are read from them.
#pragma once

#include "automation/driver.h"
#include "desktop/desktop.h"

namespace qv {

class QtDriver : public Driver {
   public:
    // `places`: states also tell where a control is on the screen ("place": left, top, width, height), and of a list where the rows
    // are that can be seen ("rows": from the first of them, by number). For tests that use a real mouse.
    QtDriver(Desktop& desktop, bool places) : desktop_(desktop), places_(places) {}

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
    void AddPlace(const Control& control, nlohmann::json& state) const;

    Desktop& desktop_;
    bool places_;
};

}  // namespace qv
