#include "desktop/mouse.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QStyle>
#include <QStyleOptionButton>

namespace qv::mouse {
namespace {

void Send(QWidget& widget, QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons buttons) {
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

}  // namespace

void Move(QWidget& widget, const QPoint& at) { Send(widget, QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton); }

void Press(QWidget& widget, const QPoint& at, Qt::MouseButton button) {
    Send(widget, QEvent::MouseButtonPress, at, button, button);
}

void Release(QWidget& widget, const QPoint& at, Qt::MouseButton button) {
    Send(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton);
}

void DoubleClick(QWidget& widget, const QPoint& at) {
    Send(widget, QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton);
    Release(widget, at);
}

QPoint ClickPlace(const QWidget& widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    if (button == nullptr || !button->isCheckable()) return widget.rect().center();
    return {widget.style()->pixelMetric(QStyle::PM_IndicatorWidth) / 2 + 1, widget.height() / 2};  // on its box
}

void Click(QWidget& widget) {
    // A window that was shown a moment ago may not have its size yet: there is no place on the button to click on.
    if (auto* button = qobject_cast<QAbstractButton*>(&widget); button != nullptr && button->rect().isEmpty()) {
        button->click();
        return;
    }
    const QPointer<QWidget> alive(&widget);
    const QPoint at = ClickPlace(widget);
    Press(widget, at);
    if (alive) Release(widget, at);
}

void PressKey(QWidget& widget, Qt::Key key, const QString& text) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &event);
}

void ReleaseKey(QWidget& widget, Qt::Key key, const QString& text) {
    QKeyEvent event(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &event);
}

}  // namespace qv::mouse
