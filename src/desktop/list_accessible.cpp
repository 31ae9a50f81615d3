#include "desktop/list_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <unordered_map>

#include "desktop/list_view.h"
#include "desktop/qt_text.h"

namespace qv {
namespace {

class AccessibleRow : public QAccessibleInterface {
   public:
    AccessibleRow(ListView& view, int row) : view_(view), row_(row) {}

    bool isValid() const override { return view_.List() != nullptr && row_ < view_.List()->Count(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&view_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? ToQt(view_.List()->Text(row_)) : QString();
    }
    QRect rect() const override {
        const QRect place = view_.RowRect(row_);
        return {view_.viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const bool picked = view_.List()->Selected(row_);
        state.selectable = state.focusable = true;
        state.selected = picked;
        state.checkable = view_.List()->MultiSelect();
        state.checked = state.checkable && picked;
        state.focused = view_.hasFocus() && view_.List()->ListIndex() == row_;
        state.disabled = !view_.isEnabled();
        state.invisible = !view_.RowRect(row_).intersects(view_.viewport()->rect());
        return state;
    }

    int Row() const { return row_; }

   private:
    ListView& view_;
    int row_;
};

class AccessibleList : public QAccessibleWidget {
   public:
    explicit AccessibleList(ListView& view) : QAccessibleWidget(&view, QAccessible::List), view_(view) {}
    ~AccessibleList() override {
        for (const auto& [row, id] : rows_) QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return view_.List() == nullptr ? 0 : view_.List()->Count(); }
    QAccessibleInterface* child(int row) const override {
        if (row < 0 || row >= childCount()) return nullptr;
        const auto known = rows_.find(row);
        if (known != rows_.end()) return QAccessible::accessibleInterface(known->second);
        auto* made = new AccessibleRow(view_, row);
        rows_[row] = QAccessible::registerAccessibleInterface(made);
        return made;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* row = dynamic_cast<const AccessibleRow*>(child);
        return row == nullptr ? -1 : row->Row();
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return child(view_.RowAt(view_.viewport()->mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface* focusChild() const override {
        return view_.List() == nullptr || !view_.hasFocus() ? nullptr : child(view_.List()->ListIndex());
    }

   private:
    ListView& view_;
    mutable std::unordered_map<int, QAccessible::Id> rows_;
};

QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* view = dynamic_cast<ListView*>(object);
    return view == nullptr ? nullptr : new AccessibleList(*view);
}

}  // namespace

void TellListsToAssistiveTools() {
    static const bool once = [] {
        QAccessible::installFactory(Make);
        return true;
    }();
    static_cast<void>(once);
}

}  // namespace qv
