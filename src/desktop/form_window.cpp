#include "desktop/form_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "controls/user_actions.h"
#include "controls/window_system.h"
#include "desktop/list_binder.h"
#include "desktop/qt_text.h"

namespace qv {
namespace {

// About what a window manager puts around a window.
constexpr int kFrame = 2;      // pixels
constexpr int kTitleBar = 28;  // pixels

}  // namespace

FormWindow::FormWindow(Form& form, QWidget* parent, Qt::WindowFlags flags) : QWidget(parent, flags), form_(&form) {
    if (flags == Qt::Dialog) setWindowFlags(flags | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setObjectName(QString::fromStdString(form.Name()));
    if (form.Topmost()) setWindowFlag(Qt::WindowStaysOnTopHint);
    if (form.Modal()) setWindowModality(Qt::ApplicationModal);
}

FormWindow::~FormWindow() { Release(); }

void FormWindow::Open() {
    form_->Observe(this);
    for (Control* control : form_->Controls()) control->Observe(this);
    TellOfMissingWidgets();
    SetTabOrder();
    YieldAccessKeysToMenus();
    ShowDefaultButton();
    FitPlace();
    for (const Aspect aspect : {Aspect::Caption, Aspect::Pointer, Aspect::Geometry}) ShowForm(aspect);
    ShowFocus();
    open_ = true;
    ShowForm(Aspect::Visible);
    ShowFocus();
    TakePlace();
    BringUp();
}

void FormWindow::Release() {
    if (form_ == nullptr) return;
    form_->Observe(nullptr);
    for (Control* control : form_->Controls()) control->Observe(nullptr);
    form_ = nullptr;
    for (auto& [control, binder] : binders_) binder->Release();
    if (menus_) menus_->Release();
    if (tabs_ != nullptr) tabs_->Wished = nullptr;
}

void FormWindow::BringUp() {
    if (isHidden() || isMinimized() || isActiveWindow()) return;
    raise();
    activateWindow();
}

Binder* FormWindow::BinderOf(const Control& control) const {
    const auto found = binders_.find(&control);
    return found == binders_.end() ? nullptr : found->second.get();
}

void FormWindow::ControlChanged(Control& control, Aspect aspect) {
    if (form_ == nullptr) return;
    const bool outer = std::exchange(showing_, true);
    if (&control == form_) {
        ShowForm(aspect);
    } else if (control.Kind() == ControlKind::Menu) {
        if (menus_) menus_->Show(static_cast<Menu&>(control), aspect);
    } else if (Binder* binder = BinderOf(control)) {
        binder->Show(aspect);
        if (aspect == Aspect::Caption && control.Kind() == ControlKind::CommandButton) YieldAccessKeysToMenus();
    }
    showing_ = outer;
}

void FormWindow::RowsAdded(ListBox& list, int, int) {
    if (Binder* binder = BinderOf(list)) static_cast<ListBinder*>(binder)->RowsChanged();
}

void FormWindow::RowRemoved(ListBox& list, int) {
    if (Binder* binder = BinderOf(list)) static_cast<ListBinder*>(binder)->RowsChanged();
}

void FormWindow::RowChanged(ListBox& list, int row) {
    if (Binder* binder = BinderOf(list)) static_cast<ListBinder*>(binder)->RowChanged(row);
}

void FormWindow::ShowForm(Aspect aspect) {
    const bool outer = std::exchange(showing_, true);
    switch (aspect) {
        case Aspect::Caption: setWindowTitle(ToQt(form_->Caption())); break;
        case Aspect::Pointer:
            if (form_->Pointer() == Pointer::Wait)
                setCursor(Qt::WaitCursor);
            else
                unsetCursor();
            break;
        case Aspect::Geometry: ShowPlace(); break;
        case Aspect::Focus: ShowFocus(); break;
        case Aspect::Enabled: setEnabled(form_->Enabled()); break;
        case Aspect::Visible: setVisible(form_->Visible()); break;
        default: break;
    }
    showing_ = outer;
}

// The window is at least as large as its contents need and, unless the user made it so, not larger than the screen, around the
// middle of where the form would be, and on the screen.
void FormWindow::FitPlace() {
    ensurePolished();
    const Geometry& wish = form_->Place();
    QRect place(wish.left, wish.top, wish.width, wish.height);
    const QSize least = layout() != nullptr ? layout()->totalMinimumSize() : QSize(0, 0);
    const QPoint middle = place.center();
    if (place.size() != place.size().expandedTo(least)) {
        place.setSize(place.size().expandedTo(least));
        place.moveCenter(middle);
    }
    const QScreen* screen = QGuiApplication::screenAt(middle);
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    if (screen != nullptr) {
        const QRect room = screen->availableGeometry().adjusted(kFrame, kTitleBar, -kFrame, -kFrame);
        const QSize fits = form_->PlaceIsKept() ? place.size() : place.size().boundedTo(room.size().expandedTo(least));
        if (fits != place.size() || !screen->availableGeometry().intersects(place)) {
            place.setSize(fits);
            place.moveCenter(room.center());
        }
    }
    form_->SetPlace({place.left(), place.top(), place.width(), place.height()});
}

void FormWindow::ShowPlace() {
    const Geometry& place = form_->Place();
    if (form_->State() == WindowState::Normal && (pos() != QPoint(place.left, place.top))) move(place.left, place.top);
    if (form_->State() == WindowState::Normal && size() != QSize(place.width, place.height)) resize(place.width, place.height);
    Qt::WindowStates states = windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
    if (form_->State() == WindowState::Minimised) states |= Qt::WindowMinimized;
    if (form_->State() == WindowState::Maximised) states |= Qt::WindowMaximized;
    if (states != windowState()) setWindowState(states);
}

void FormWindow::ShowFocus() {
    const bool outer = std::exchange(showing_, true);
    const Binder* binder = form_->Focus() == nullptr ? nullptr : BinderOf(*form_->Focus());
    if (binder != nullptr)
        binder->Target()->setFocus(Qt::OtherFocusReason);
    else if (QWidget* holder = focusWidget())
        holder->clearFocus();
    showing_ = outer;
}

void FormWindow::ShowDefaultButton() {
    for (auto& [control, binder] : binders_)
        if (auto* button = qobject_cast<QPushButton*>(binder->Widget()))
            button->setDefault(form_->DefaultButton() == control);
}

void FormWindow::TakePlace() {
    if (form_ == nullptr || showing_ || !open_ || !isVisible() || isMinimized()) return;
    const Geometry& known = form_->Place();
    if (QRect(known.left, known.top, known.width, known.height) == QRect(pos(), size())) return;
    form_->SetPlace({pos().x(), pos().y(), width(), height()});
}

void FormWindow::moveEvent(QMoveEvent*) { TakePlace(); }
void FormWindow::resizeEvent(QResizeEvent*) { TakePlace(); }

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || form_ == nullptr || showing_ || !open_) return;
    form_->SetState(isMinimized()   ? WindowState::Minimised
                    : isMaximized() ? WindowState::Maximised
                                    : WindowState::Normal);
}

// The close box: the form may refuse.
void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (form_ != nullptr) form_->Close();
}

bool FormWindow::event(QEvent* event) {
    // What windows pass through on their way to the front isn't the user's doing: it counts when all that has settled.
    if (event->type() == QEvent::WindowActivate && form_ != nullptr && open_)
        QMetaObject::invokeMethod(this, [this] { TakeActivation(); }, Qt::QueuedConnection);
    return QWidget::event(event);
}

// The user has come back to a window that stood behind another one.
void FormWindow::TakeActivation() {
    if (form_ == nullptr || !isVisible() || !isActiveWindow()) return;
    const auto forms = form_->Windows().Forms();
    if (form_->Windows().BlockedBy(*form_).empty() && !forms.empty() && forms.front() != form_)
        form_->Windows().Activate(*form_);
}

// Keys that no control has taken.
void FormWindow::keyPressEvent(QKeyEvent* event) {
    if (form_ == nullptr) return;
    const Key key = KeyOf(*event);
    if ((key == Key::Enter || key == Key::Escape) && user::PressFormButton(*form_, key)) return;
    QWidget::keyPressEvent(event);
}

// Keys that go through the tabs from wherever the focus is.
void FormWindow::AddTabKeys() {
    const std::pair<QKeySequence, int> keys[] = {{QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1},
                                                 {QKeySequence(Qt::CTRL | Qt::Key_Tab), 1},
                                                 {QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1},
                                                 {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), -1}};
    for (const auto& [key, step] : keys)
        connect(new QShortcut(key, this), &QShortcut::activated, this, [this, direction = step] { NextTab(direction); });
}

void FormWindow::NextTab(int step) {
    if (tabs_->isEnabled()) tabs_->Wish((tabs_->currentIndex() + step + tabs_->count()) % tabs_->count());
}

// A view that forgot a control which can be seen.
void FormWindow::TellOfMissingWidgets() const {
    for (const Control* control : form_->Controls()) {
        const bool unseen = control->Kind() == ControlKind::Menu || control->Kind() == ControlKind::Timer || !control->Visible();
        if (!unseen && BinderOf(*control) == nullptr)
            qWarning("%s.%s has no widget", form_->Name().c_str(), control->AddressName().c_str());
    }
}

void FormWindow::SetTabOrder() {
    QWidget* before = nullptr;
    for (const Control* control : form_->Controls()) {
        Binder* binder = control->CanFocus() ? BinderOf(*control) : nullptr;
        if (binder == nullptr) continue;
        if (before != nullptr) QWidget::setTabOrder(before, binder->Target());
        before = binder->Target();
    }
}

// A key that opens a menu opens it always; a button of the same key is pressed by it with Shift.
void FormWindow::YieldAccessKeysToMenus() {
    for (auto& [control, binder] : binders_) {
        auto* button = qobject_cast<QPushButton*>(binder->Widget());
        if (button == nullptr) continue;
        const QKeySequence key = QKeySequence::mnemonic(button->text());
        for (const Menu* menu : form_->Menus()) {
            if (key.isEmpty() || QKeySequence::mnemonic(ToQt(menu->Caption())) != key) continue;
            button->setShortcut(QKeySequence(QKeyCombination(key[0].keyboardModifiers() | Qt::ShiftModifier, key[0].key())));
        }
    }
}

void FormWindow::AddState(nlohmann::json& state) const {
    state["caption"] = FromQt(windowTitle());
    state["visible"] = !isHidden();
    state["enabled"] = isEnabled();
    state["usable"] = isEnabled() && isVisible();
    state["modal"] = isModal();
    state["state"] = isMinimized() ? "minimised" : isMaximized() ? "maximised" : "normal";
    state["pointer"] = cursor().shape() == Qt::WaitCursor ? "wait" : "default";
    state["left"] = pos().x();
    state["top"] = pos().y();
    state["width"] = width();
    state["height"] = height();
    const QWidget* holder = focusWidget();
    state["focus"] = nullptr;
    for (const auto& [control, binder] : binders_)
        if (holder != nullptr && binder->Target() == holder) state["focus"] = control->AddressName();
}

}  // namespace qv
