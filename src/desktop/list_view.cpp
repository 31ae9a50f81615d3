#include "desktop/list_view.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "controls/form.h"
#include "desktop/qt_text.h"

namespace qv {
namespace {

constexpr int kMargin = 4;  // pixels

QColor Blend(const QColor& under, const QColor& over, double part) {
    const auto mix = [part](int a, int b) { return static_cast<int>(a + (b - a) * part); };
    return QColor(mix(under.red(), over.red()), mix(under.green(), over.green()), mix(under.blue(), over.blue()));
}

}  // namespace

ListView::ListView(QWidget* parent) : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Base);
    Measure();
}

void ListView::Measure() {
    const QFontMetricsF metrics(font());
    rowHeight_ = static_cast<int>(std::ceil(metrics.height())) + 4;
    characterWidth_ = std::max(1.0, metrics.horizontalAdvance('i'));
    verticalScrollBar()->setSingleStep(rowHeight_);
    horizontalScrollBar()->setSingleStep(WidthOf(4));
}

void ListView::SetFixedPitch() {
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    Measure();
}

int ListView::WidthOf(int characters) const { return static_cast<int>(std::ceil(characterWidth_ * characters)); }

void ListView::SetList(ListBox* list) {
    list_ = list;
    RowsChanged();
}

int ListView::TextLeft() const {
    if (list_ == nullptr || !list_->MultiSelect()) return kMargin;
    return kMargin + style()->pixelMetric(QStyle::PM_IndicatorWidth) + 2 * kMargin;
}

int ListView::ScrolledBy() const { return horizontalScrollBar()->value(); }

QRect ListView::RowRect(int row) const {
    if (list_ == nullptr || row < 0 || row >= list_->Count()) return {};
    return {0, row * rowHeight_ - verticalScrollBar()->value(), viewport()->width(), rowHeight_};
}

int ListView::RowAt(const QPoint& at) const {
    if (list_ == nullptr || at.y() < 0) return -1;
    const int row = (at.y() + verticalScrollBar()->value()) / rowHeight_;
    return row < list_->Count() ? row : -1;
}

int ListView::LastRowSeen() const {
    if (list_ == nullptr) return -1;
    return std::min(list_->Count(), (viewport()->height() + verticalScrollBar()->value()) / rowHeight_) - 1;
}

void ListView::EnsureVisible(int row) {
    if (list_ == nullptr || row < 0) return;
    SetBarsIfDue();
    const int top = row * rowHeight_;
    QScrollBar& bar = *verticalScrollBar();
    if (top < bar.value())
        bar.setValue(top);
    else if (top + rowHeight_ > bar.value() + viewport()->height())
        bar.setValue(top + rowHeight_ - viewport()->height());
}

void ListView::RowsChanged() {
    viewport()->update();
    barsDue_ = true;
    Schedule();
}

void ListView::Schedule() {
    if (scheduled_) return;
    scheduled_ = true;
    QMetaObject::invokeMethod(this, [this] { Settle(); }, Qt::QueuedConnection);
}

void ListView::Settle() {
    scheduled_ = false;
    SetBarsIfDue();
    if (std::exchange(followDue_, false) && list_ != nullptr) EnsureVisible(list_->ListIndex());
}

void ListView::SetBarsIfDue() {
    if (std::exchange(barsDue_, false)) SetBars();
}

long ListView::Extent() const {
    if (list_ == nullptr) return 0;
    long extent = list_->HorizontalExtent();
    const QFontMetrics metrics(font());
    for (int row = 0; measuresRows_ && row < list_->Count(); ++row)
        extent = std::max<long>(extent, metrics.horizontalAdvance(ToQt(list_->Text(row))) + kMargin);
    return extent;
}

void ListView::SetBars() {
    const int rows = list_ == nullptr ? 0 : list_->Count();
    const long extent = Extent();
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, rows * rowHeight_ - viewport()->height()));
    const long wide = rows == 0 ? 0 : extent + TextLeft() - viewport()->width();
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setRange(0, static_cast<int>(std::clamp(wide, 0L, 1L << 24)));
}

void ListView::RowChanged(int row) {
    const QRect place = RowRect(row);
    if (place.intersects(viewport()->rect())) viewport()->update(place);
}

void ListView::CurrentChanged() {
    if (list_ == nullptr) return;
    RowChanged(shownCurrent_);
    shownCurrent_ = list_->ListIndex();
    RowChanged(shownCurrent_);
    followDue_ = true;
    Schedule();
    if (!QAccessible::isActive() || !hasFocus() || shownCurrent_ < 0) return;
    QAccessibleEvent told(this, QAccessible::Focus);
    told.setChild(shownCurrent_);
    QAccessible::updateAccessibility(&told);
}

QSize ListView::sizeHint() const {
    const int frame = 2 * frameWidth();
    return {WidthOf(60) + frame, rowHeight_ * hintRows_ + frame};
}

QSize ListView::minimumSizeHint() const {
    const int frame = 2 * frameWidth();
    return {WidthOf(20) + frame, rowHeight_ * std::min(hintRows_, 2) + frame};
}

void ListView::paintEvent(QPaintEvent* event) {
    if (list_ == nullptr) return;
    QPainter painter(viewport());
    if (list_->Count() == 0) {
        painter.setFont(QApplication::font());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect().adjusted(16, 4, -16, -4), Qt::AlignCenter | Qt::TextWordWrap, placeholder_);
        return;
    }
    const int first = std::max(0, (event->rect().top() + verticalScrollBar()->value()) / rowHeight_);
    const int last = std::min(list_->Count() - 1, (event->rect().bottom() + verticalScrollBar()->value()) / rowHeight_);
    for (int row = first; row <= last; ++row) PaintRow(painter, row, RowRect(row));
}

void ListView::PaintRow(QPainter& painter, int row, const QRect& place) const {
    const bool current = row == list_->ListIndex();
    const bool picked = list_->Selected(row);
    // While a run holds the list disabled its rows are what is looked at: they stay as legible as ever.
    const QColor base = viewport()->palette().color(viewport()->backgroundRole());
    const QColor highlight = palette().color(QPalette::Active, QPalette::Highlight);
    QColor text = palette().color(QPalette::Active, QPalette::Text);
    if (!list_->MultiSelect()) {
        if (picked) {
            painter.fillRect(place, hasFocus() ? highlight : Blend(base, highlight, 0.35));
            if (hasFocus()) text = palette().color(QPalette::Active, QPalette::HighlightedText);
        }
    } else {
        if (current || picked) painter.fillRect(place, Blend(base, highlight, current ? 0.30 : 0.10));
        QStyleOptionButton box;
        const int side = style()->pixelMetric(QStyle::PM_IndicatorWidth);
        box.rect = QRect(kMargin - ScrolledBy(), place.top() + (rowHeight_ - side) / 2, side, side);
        box.palette = palette();
        box.state = (isEnabled() ? QStyle::State_Enabled : QStyle::State_None) | (picked ? QStyle::State_On : QStyle::State_Off);
        style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, this);
    }
    PaintText(painter, row, place, text);
    if (current && (hasFocus() || list_->MultiSelect())) {
        painter.setPen(QPen(Blend(highlight, text, hasFocus() ? 0.3 : 0.0), 1, hasFocus() ? Qt::SolidLine : Qt::DotLine));
        painter.drawRect(place.adjusted(0, 0, -1, -1));
    }
}

// Of a long text only what can be seen is laid out.
void ListView::PaintText(QPainter& painter, int row, const QRect& place, const QColor& colour) const {
    const std::string& bytes = list_->Text(row);
    const auto seen = static_cast<qsizetype>((ScrolledBy() + place.width()) / characterWidth_) + 8;
    QString text = ToQt(std::string_view(bytes).substr(0, static_cast<std::size_t>(seen) * 4 + 64)).left(seen);
    for (QChar& c : text)
        if (c < ' ') c = ' ';
    QRect at = place.adjusted(TextLeft() - ScrolledBy(), 0, ScrolledBy() + 1, 0);
    constexpr int kFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;
    const auto lead = lead_ ? lead_(bytes) : std::nullopt;
    if (lead) {
        QFont bold = font();
        bold.setBold(true);
        painter.setFont(bold);
        painter.setPen(lead->colour);
        painter.drawText(at, kFlags, text.left(lead->characters));
        at.adjust(WidthOf(lead->characters), 0, 0, 0);
        text = text.mid(lead->characters);
    }
    painter.setFont(font());
    painter.setPen(colour);
    painter.drawText(at, kFlags, text);
}

void ListView::resizeEvent(QResizeEvent*) {
    SetBars();
    if (Scrolled) Scrolled();
}

// Up and down what is seen already moves along; sideways the marks at both ends stay where they are.
void ListView::scrollContentsBy(int dx, int dy) {
    if (dx == 0 && std::abs(dy) < viewport()->height()) {
        viewport()->scroll(0, dy);
        return;
    }
    viewport()->update();
    if (dx != 0 && Scrolled) Scrolled();
}

void ListView::mousePressEvent(QMouseEvent* event) {
    const int row = RowAt(event->position().toPoint());
    if (row < 0) return;
    if (event->button() == Qt::LeftButton) list_->ClickRow(row);
    if (event->button() == Qt::RightButton) list_->RightClickRow(row);
}

// The second press of a double click on a list that knows no double click is a press like the first.
void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (list_ == nullptr) return;
    if (!list_->DblClick)
        mousePressEvent(event);
    else if (event->button() == Qt::LeftButton && RowAt(event->position().toPoint()) >= 0)
        list_->DblClick();
}

bool ListView::MoveCurrent(const QKeyEvent& event) {
    const int page = std::max(1, viewport()->height() / rowHeight_ - 1);
    const int present = list_->ListIndex();
    int row = present;
    switch (event.key()) {
        case Qt::Key_Up: row = present - 1; break;
        case Qt::Key_Down: row = present + 1; break;
        case Qt::Key_PageUp: row = present - page; break;
        case Qt::Key_PageDown: row = present + page; break;
        case Qt::Key_Home: row = 0; break;
        case Qt::Key_End: row = list_->Count() - 1; break;
        default: return false;
    }
    if (list_->Count() > 0) list_->SetListIndex(std::clamp(row, 0, list_->Count() - 1));
    return true;
}

void ListView::keyPressEvent(QKeyEvent* event) {
    if (list_ == nullptr) return;
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (plain && MoveCurrent(*event)) return;
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        auto* bar = horizontalScrollBar();
        bar->setValue(bar->value() + (event->key() == Qt::Key_Right ? 1 : -1) * bar->singleStep());
    } else if (plain && event->key() == Qt::Key_Space) {
        if (event->isAutoRepeat()) return;
        list_->ToggleCurrent();
        // At once: by the time the key is let go of another row may be the current one.
        if (list_ != nullptr) list_->KeyUp(Key::Space);
    } else {
        event->ignore();
    }
}

// The key for context menus stands for a right click on the current row. That of the mouse has come as a press already.
void ListView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Keyboard || list_ == nullptr || list_->ListIndex() < 0) return;
    EnsureVisible(list_->ListIndex());
    list_->RightClickRow(list_->ListIndex());
}

void ListView::focusInEvent(QFocusEvent*) { viewport()->update(); }
void ListView::focusOutEvent(QFocusEvent*) { viewport()->update(); }

void ListView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        Measure();
        RowsChanged();
    }
    if (event->type() == QEvent::EnabledChange) viewport()->update();
}

}  // namespace qv
