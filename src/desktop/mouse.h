// A user's hands: mouse and key events sent to a widget.
#pragma once

#include <QPoint>
#include <QWidget>

namespace qv::mouse {

void Move(QWidget& widget, const QPoint& at);
void Press(QWidget& widget, const QPoint& at, Qt::MouseButton button = Qt::LeftButton);
void Release(QWidget& widget, const QPoint& at, Qt::MouseButton button = Qt::LeftButton);
void DoubleClick(QWidget& widget, const QPoint& at);

// On the place of the widget that takes clicks. Nothing more is done if the widget goes between press and release.
void Click(QWidget& widget);
QPoint ClickPlace(const QWidget& widget);

void PressKey(QWidget& widget, Qt::Key key, const QString& text);
void ReleaseKey(QWidget& widget, Qt::Key key, const QString& text);

}  // namespace qv::mouse
