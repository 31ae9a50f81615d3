// Keeps one control and one widget alike: the control's state goes to the widget, the user's doings at the widget become the
// control's events. A binder knows a kind of control, never what a control is for.
#pragma once

#include <QObject>
#include <QWidget>
#include <nlohmann/json_fwd.hpp>

#include "controls/control.h"

class QKeyEvent;

namespace qv {

// The key of the controls that a key of the keyboard is.
Key KeyOf(const QKeyEvent& event);

class Binder : public QObject {
   public:
    // Takes no ownership: the widget belongs to its parent, the binder to the window.
    Binder(Control& control, QWidget* widget);
    // While this is set, focus that comes to the widget is the toolkit's doing and not the user's. It outlives the binder.
    void HeedQuiet(const bool& quiet) { quiet_ = &quiet; }

    QWidget* Widget() const { return widget_; }
    virtual QWidget* Target() const { return widget_; }  // the part of the widget that takes the mouse and the keys
    const Control* Bound() const { return control_; }

    // Shows what changed. ShowAll shows everything, for a new widget.
    void Show(Aspect aspect);
    void ShowAll();

    // The control is about to go: from here on the widget does nothing.
    virtual void Release();

    // What the widget really shows, put over the control's own state.
    void AddState(nlohmann::json& state) const;

    // Moves and keys of the mouse and the keyboard that the widget gets reach the control.
    void WatchTarget();

   protected:
    virtual void ShowAspect(Aspect aspect) = 0;
    virtual void AddWidgetState(nlohmann::json& state) const = 0;
    virtual void MousePressed() {}  // with the left button, in front of what the widget does with it
    bool eventFilter(QObject* watched, QEvent* event) override;

    // The control, or null when it has gone. Handlers of widget signals begin with it; while a change is being shown they are
    // to stay quiet.
    template <class T>
    T* Live() const {
        return showing_ ? nullptr : static_cast<T*>(control_);
    }
    template <class T>
    T& As() const {
        return static_cast<T&>(*control_);
    }

   private:
    Control* control_;
    QWidget* widget_;
    const bool* quiet_ = nullptr;
    bool showing_ = false;
};

}  // namespace qv
