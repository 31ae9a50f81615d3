#include "desktop/widgets.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QStyle>
#include <QStyleOption>

namespace qv {

TextLabel::TextLabel(Style style, QWidget* parent) : QLabel(parent), style_(style) {
    setTextFormat(Qt::PlainText);
    setWordWrap(style == Style::Wrapped);
    if (style == Style::Cut) setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize TextLabel::minimumSizeHint() const {
    const QSize whole = QLabel::minimumSizeHint();
    return style_ == Style::Cut ? QSize(0, fontMetrics().height()) : whole;
}

void TextLabel::paintEvent(QPaintEvent* event) {
    if (style_ != Style::Cut) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    // A text of any length: what can't be seen isn't measured.
    const QString start = text().left(1000);
    const QString shown = fontMetrics().elidedText(start, Qt::ElideRight, width());
    style()->drawItemText(&painter, rect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), palette(), isEnabled(), shown,
                          foregroundRole());
}

void PictureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (paint_) paint_(painter, rect());
}

void PictureView::resizeEvent(QResizeEvent* event) {
    if (Resized) Resized(event->size().width());
}

TitledPage::TitledPage(QWidget* parent)
    : QWidget(parent), title_(new TextLabel(TextLabel::Style::Line, this)), content_(new QVBoxLayout) {
    QFont font = title_->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    title_->setFont(font);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(12, 8, 12, 8);
    whole->setSpacing(12);
    whole->addWidget(title_);
    whole->addLayout(content_, 1);
}

TabBar::TabBar(QWidget* parent) : QTabBar(parent) {
    setDrawBase(true);
    setExpanding(false);
}

void TabBar::Wish(int tab) {
    if (tab >= 0 && tab < count() && tab != currentIndex() && Wished) Wished(tab);
}

void TabBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Wish(tabAt(event->position().toPoint()));
}

void TabBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)
        Wish(currentIndex() + (event->key() == Qt::Key_Right ? 1 : -1));
    else
        event->ignore();
}

void TabBar::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace qv
