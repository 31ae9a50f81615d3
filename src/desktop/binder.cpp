#include "desktop/binder.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <nlohmann/json.hpp>
#include <utility>

#include "controls/form.h"
#include "desktop/qt_text.h"

namespace qv {

Key KeyOf(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Space: return Key::Space;
        case Qt::Key_Return:
        case Qt::Key_Enter: return Key::Enter;
        case Qt::Key_Delete: return Key::Delete;
        case Qt::Key_Escape: return Key::Escape;
        default: return Key::Character;
    }
}

Binder::Binder(Control& control, QWidget* widget) : control_(&control), widget_(widget) {
    widget_->setObjectName(QString::fromStdString(control.AddressName()));
}

void Binder::WatchTarget() {
    Target()->installEventFilter(this);
    Target()->setMouseTracking(true);
}

void Binder::Release() {
    control_ = nullptr;
    Target()->removeEventFilter(this);
    widget_->disconnect(this);
    Target()->disconnect(this);
}

void Binder::Show(Aspect aspect) {
    if (control_ == nullptr) return;
    const bool outer = std::exchange(showing_, true);
    switch (aspect) {
        case Aspect::Enabled: widget_->setEnabled(control_->Enabled()); break;
        case Aspect::Visible: widget_->setVisible(control_->Visible()); break;
        case Aspect::Tip: widget_->setToolTip(ToQt(control_->Tip())); break;
        default: ShowAspect(aspect); break;
    }
    showing_ = outer;
}

void Binder::ShowAll() {
    for (const Aspect aspect : {Aspect::Tip, Aspect::Caption, Aspect::Range, Aspect::Items, Aspect::Text, Aspect::Index,
                                Aspect::Value, Aspect::Selection, Aspect::Extent, Aspect::Enabled, Aspect::Visible})
        Show(aspect);
}

void Binder::AddState(nlohmann::json& state) const {
    if (control_ == nullptr) return;
    const bool usable = widget_->isEnabled() && widget_->isVisible();
    state["enabled"] = widget_->parentWidget() == nullptr ? widget_->isEnabled() : widget_->isEnabledTo(widget_->parentWidget());
    state["visible"] = !widget_->isHidden();
    state["usable"] = usable;
    state["tip"] = FromQt(widget_->toolTip());
    AddWidgetState(state);
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
    if (control_ == nullptr || showing_) return QObject::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::FocusIn:
            if (quiet_ == nullptr || !*quiet_) control_->ParentForm().MoveFocus(control_);
            break;
        case QEvent::MouseMove: control_->MouseMove(); break;
        case QEvent::KeyPress: {
            const Key key = KeyOf(*static_cast<QKeyEvent*>(event));
            control_->ParentForm().KeyDown(key);
            if (control_ != nullptr) control_->KeyPress(key);
            break;
        }
        case QEvent::KeyRelease: {
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (!key.isAutoRepeat()) control_->KeyUp(KeyOf(key));
            break;
        }
        case QEvent::MouseButtonPress:
            if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) MousePressed();
            break;
        default: break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace qv
