#include "desktop/layout.h"

#include <algorithm>

namespace qv {

QHBoxLayout* ButtonRow(std::initializer_list<QWidget*> buttons) {
    constexpr int kNarrowest = 88;  // pixels
    constexpr int kGap = 6;
    auto* row = new QHBoxLayout;
    row->setSpacing(kGap);
    row->addStretch();
    for (QWidget* button : buttons) {
        button->setMinimumWidth(kNarrowest);
        row->addWidget(button);
    }
    return row;
}

QHBoxLayout* Row(std::initializer_list<QWidget*> widgets, int stretched) {
    auto* row = new QHBoxLayout;
    int index = 0;
    for (QWidget* widget : widgets) row->addWidget(widget, index++ == stretched ? 1 : 0);
    if (stretched < 0) row->addStretch();
    return row;
}

TextLabel* Enlarged(TextLabel* label, double factor) {
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * factor);
    label->setFont(font);
    return label;
}

QWidget* PagesInOnePlace(const std::vector<QWidget*>& pages) {
    auto* place = new QWidget;
    auto* grid = new QGridLayout(place);
    grid->setContentsMargins(0, 0, 0, 0);
    QSize largest;
    for (QWidget* page : pages) {
        if (page->layout() != nullptr) largest = largest.expandedTo(page->layout()->sizeHint());
        grid->addWidget(page, 0, 0);
    }
    place->setMinimumSize(largest);
    return place;
}

void AddField(QGridLayout& grid, QWidget* label, QWidget* field) {
    const int row = grid.rowCount();
    grid.addWidget(label, row, 0);
    grid.addWidget(field, row, 1);
}

}  // namespace qv
