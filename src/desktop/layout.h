// What the views share in laying out.
#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <initializer_list>
#include <vector>

#include "desktop/widgets.h"

namespace qv {

// Buttons of one width at the right end of a row.
QHBoxLayout* ButtonRow(std::initializer_list<QWidget*> buttons);

// Widgets in a row, the one of that place taking what room is left; without one they stand at the left.
QHBoxLayout* Row(std::initializer_list<QWidget*> widgets, int stretched = -1);

// The same label in a bold font, larger by a factor.
TextLabel* Enlarged(TextLabel* label, double factor);

// Pages of which one is seen at a time, in one place that is large enough for each of them.
QWidget* PagesInOnePlace(const std::vector<QWidget*>& pages);

// A field behind its label, as a row of a grid of two columns.
void AddField(QGridLayout& grid, QWidget* label, QWidget* field);

}  // namespace qv
