#include "desktop/list_binder.h"

#include <QKeyEvent>

namespace qv {

ListBinder::ListBinder(ListBox& list, ListView* widget) : Binder(list, widget), view_(widget) {
    view_->SetList(&list);
    view_->viewport()->setMouseTracking(true);
    view_->viewport()->installEventFilter(this);
}

void ListBinder::Release() {
    Binder::Release();
    view_->SetList(nullptr);
}

void ListBinder::ShowAspect(Aspect aspect) {
    if (aspect == Aspect::Items || aspect == Aspect::Extent) view_->RowsChanged();
    if (aspect == Aspect::Index) view_->CurrentChanged();
}

// The view has no rows of its own to tell of.
void ListBinder::AddWidgetState(nlohmann::json&) const {}

// The mouse moves over the part of the view that holds the rows; all else comes to the view itself.
bool ListBinder::eventFilter(QObject* watched, QEvent* event) {
    const bool spaceUp = event->type() == QEvent::KeyRelease && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
    if (watched != view_->viewport()) return !spaceUp && Binder::eventFilter(watched, event);  // the view told of it at the press
    if (event->type() == QEvent::MouseMove)
        if (auto* list = Live<ListBox>()) list->MouseMove();
    return false;
}

}  // namespace qv
