#include "desktop/qt_driver.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <algorithm>
#include <nlohmann/json.hpp>

#include "automation/state_json.h"
#include "controls/menu.h"
#include "controls/text_box.h"
#include "desktop/list_binder.h"
#include "desktop/mouse.h"
#include "desktop/qt_text.h"
#include "desktop/simple_binders.h"

namespace qv {
namespace {

// A key of the controls, as a keyboard gives it.
std::pair<Qt::Key, QString> KeyboardKey(Key key) {
    switch (key) {
        case Key::Space: return {Qt::Key_Space, " "};
        case Key::Enter: return {Qt::Key_Return, "\r"};
        case Key::Delete: return {Qt::Key_Delete, "\x7f"};
        case Key::Escape: return {Qt::Key_Escape, "\x1b"};
        case Key::Character: break;
    }
    return {Qt::Key_unknown, ""};
}

void ReplaceText(QWidget& widget, const QString& text) {
    if (auto* combo = qobject_cast<QComboBox*>(&widget)) return ReplaceText(*combo->lineEdit(), text);
    if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
        line->selectAll();
        text.isEmpty() ? line->del() : line->insert(text);
    } else if (auto* page = qobject_cast<QPlainTextEdit*>(&widget)) {
        page->selectAll();
        page->insertPlainText(text);
    }
}

QPoint RowPlace(ListView& view, int row) {
    view.EnsureVisible(row);
    const QRect place = view.RowRect(row);
    return {std::min(40, place.width() / 2), place.center().y()};
}

}  // namespace

Binder* QtDriver::BinderOf(const Control& control) const {
    const FormWindow* window = desktop_.WindowOf(control.ParentForm());
    return window == nullptr ? nullptr : window->BinderOf(control);
}

QWidget* QtDriver::TargetOf(const Control& control) const {
    const Binder* binder = BinderOf(control);
    return binder == nullptr ? nullptr : binder->Target();
}

nlohmann::json QtDriver::State(Control& control) {
    nlohmann::json state = StateOf(control);
    const FormWindow* window = desktop_.WindowOf(control.ParentForm());
    if (window == nullptr) return state;
    if (control.Kind() == ControlKind::Form)
        window->AddState(state);
    else if (control.Kind() == ControlKind::Menu)
        window->MenuSet()->AddState(static_cast<Menu&>(control), state);
    else if (const Binder* binder = BinderOf(control))
        binder->AddState(state);
    if (places_) AddPlace(control, state);
    return state;
}

void QtDriver::AddPlace(const Control& control, nlohmann::json& state) const {
    const auto place = [](const QWidget& widget, const QRect& part) {
        const QPoint corner = widget.mapToGlobal(part.topLeft());
        return nlohmann::json{corner.x(), corner.y(), part.width(), part.height()};
    };
    const QWidget* target = TargetOf(control);
    if (target == nullptr) return;
    state["place"] = place(*target, target->rect());
    const auto* view = dynamic_cast<const ListView*>(target);
    if (view == nullptr) return;
    state["rows"] = nlohmann::json::object();
    for (int row = std::max(0, view->RowAt({0, 0})); row <= view->LastRowSeen(); ++row)
        state["rows"][std::to_string(row)] = place(*view->viewport(), view->RowRect(row));
}

nlohmann::json QtDriver::Entries(Menu& menu) {
    const FormWindow* window = desktop_.WindowOf(menu.ParentForm());
    return window == nullptr ? EntriesOf(menu) : window->MenuSet()->Entries(menu);
}

void QtDriver::Click(Control& control) {
    if (control.Kind() == ControlKind::Menu) {
        if (FormWindow* window = desktop_.WindowOf(control.ParentForm())) window->MenuSet()->Choose(static_cast<Menu&>(control));
        return;
    }
    QWidget* target = TargetOf(control);
    if (target == nullptr) return;
    FocusOn(control);
    mouse::Click(*target);
}

void QtDriver::FocusOn(Control& control) const {
    if (QWidget* target = TargetOf(control); target != nullptr && control.CanFocus() && !target->hasFocus())
        control.SetFocus();
}

void QtDriver::EnterText(Control& box, const std::string& text) {
    QWidget* target = TargetOf(box);
    if (target == nullptr) return;
    FocusOn(box);
    if (box.Kind() == ControlKind::TextBox && static_cast<TextBox&>(box).ReadOnly()) return;
    const QPointer<QWidget> alive(target);
    ReplaceText(*target, ToQt(text));
    if (alive) mouse::ReleaseKey(*target, Qt::Key_unknown, "");
}

void QtDriver::SetValue(Control& control, long value) {
    QWidget* target = TargetOf(control);
    if (target == nullptr) return;
    FocusOn(control);
    if (auto* button = qobject_cast<QAbstractButton*>(target)) {
        if (button->isChecked() != (value != 0)) mouse::Click(*button);
    } else if (auto* bar = qobject_cast<QScrollBar*>(target)) {
        bar->setValue(ScrollBarBinder::Turned(*bar, static_cast<int>(value)));
    } else if (auto* tabs = qobject_cast<QTabBar*>(target)) {
        mouse::Press(*tabs, tabs->tabRect(static_cast<int>(value) - 1).center());
    }
}

void QtDriver::ClickRow(Control& list, int row) {
    QWidget* target = TargetOf(list);
    if (auto* view = dynamic_cast<ListView*>(target)) {
        const QPointer<QWidget> alive(view);
        const QPoint at = RowPlace(*view, row);
        FocusOn(list);
        mouse::Press(*view->viewport(), at);
        if (alive) mouse::Release(*view->viewport(), at);
    } else if (auto* combo = qobject_cast<QComboBox*>(target)) {
        FocusOn(list);
        combo->showPopup();
        combo->view()->setCurrentIndex(combo->model()->index(row, 0));
        mouse::PressKey(*combo->view(), Qt::Key_Return, "\r");
    }
}

void QtDriver::DoubleClickRow(Control& list, int row) {
    const QPointer<QWidget> alive(TargetOf(list));
    ClickRow(list, row);
    auto* view = dynamic_cast<ListView*>(alive.data());
    if (view != nullptr) mouse::DoubleClick(*view->viewport(), RowPlace(*view, row));
}

void QtDriver::RightClickRow(Control& list, int row) {
    auto* view = dynamic_cast<ListView*>(TargetOf(list));
    if (view == nullptr) return;
    const QPoint at = RowPlace(*view, row);
    FocusOn(list);
    mouse::Press(*view->viewport(), at, Qt::RightButton);
    Menus::CloseAll();
}

void QtDriver::Press(Control& control, Key key) {
    QWidget* target = TargetOf(control);
    if (target == nullptr) return;
    FocusOn(control);
    const auto [code, text] = KeyboardKey(key);
    const QPointer<QWidget> alive(target);
    mouse::PressKey(*target, code, text);
    if (alive) mouse::ReleaseKey(*target, code, text);
}

void QtDriver::MouseDown(Control& button) {
    FocusOn(button);
    if (QWidget* target = TargetOf(button)) mouse::Press(*target, mouse::ClickPlace(*target));
}

void QtDriver::MouseUp(Control& button) {
    if (QWidget* target = TargetOf(button)) mouse::Release(*target, mouse::ClickPlace(*target));
}

void QtDriver::Hover(Control& control) {
    QWidget* target = TargetOf(control);
    if (auto* view = dynamic_cast<ListView*>(target)) target = view->viewport();
    if (target != nullptr) mouse::Move(*target, target->rect().center());
}

void QtDriver::Focus(Control& control) { FocusOn(control); }

void QtDriver::OpenMenu(Control& menu) {
    if (FormWindow* window = desktop_.WindowOf(menu.ParentForm())) window->MenuSet()->Open(static_cast<Menu&>(menu));
}

void QtDriver::CloseMenus() { Menus::CloseAll(); }

void QtDriver::CloseForm(Form& form) {
    if (FormWindow* window = desktop_.WindowOf(form)) window->close();
}

void QtDriver::ActivateForm(Form& form) { form.Windows().Activate(form); }

void QtDriver::Answer(WindowSystem& windows, const std::optional<std::string>& value) {
    if (windows.TopMessage() != nullptr)
        desktop_.OpenPrompts().PressButton(value.value_or(""));
    else
        desktop_.OpenPrompts().Choose(value);
}

}  // namespace qv
