#include "desktop/views/enterprise_views.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>

#include "desktop/layout.h"
#include "desktop/list_view.h"

namespace qv {
namespace {

constexpr int kGap = 12;

// A label that is clicked looks like a link.
TextLabel* AsLink(TextLabel* label) {
    label->setForegroundRole(QPalette::Link);
    label->setCursor(Qt::PointingHandCursor);
    QFont font = label->font();
    font.setUnderline(true);
    label->setFont(font);
    return label;
}

}  // namespace

QWidget* BatchFormView::ListStep(BatchForm& form) {
    QGroupBox* box = MakeBox(form.Frame1);
    ListView* list = Make(form.List1);
    list->SetHintRows(6);
    list->SetMeasuresRows();
    list->SetPlaceholder("Nothing has been added yet.");
    auto* row = new QHBoxLayout(box);
    row->addWidget(list, 1);
    row->addWidget(Make(form.Command1), 0, Qt::AlignTop);
    return box;
}

QWidget* BatchFormView::LogStep(BatchForm& form) {
    QGroupBox* box = MakeBox(form.Frame2);
    auto* lines = new QVBoxLayout(box);
    for (CheckBox* check : {&form.Check1, &form.Check6, &form.Check7}) lines->addWidget(Make(*check));
    QLineEdit* folder = Make(form.Text1);
    folder->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    lines->addWidget(MakeFor(form.Label1, folder));
    lines->addLayout(Row({folder, Make(form.Command6), Make(form.Command7)}, 0));
    return box;
}

QWidget* BatchFormView::AutomaticStep(BatchForm& form) {
    QGroupBox* box = MakeBox(form.Frame3);
    auto* lines = new QVBoxLayout(box);
    lines->addWidget(Make(form.Check5));
    lines->addWidget(Make(form.Label4, TextLabel::Style::Wrapped));
    auto* options = new QVBoxLayout;
    for (OptionButton* option : {&form.Option1, &form.Option2}) options->addWidget(Make(*option));
    auto* beside = new QVBoxLayout;
    beside->addWidget(Make(form.Command5), 0, Qt::AlignRight);
    beside->addWidget(AsLink(Make(form.Label2)), 0, Qt::AlignRight);
    auto* row = new QHBoxLayout;
    row->addLayout(options, 1);
    row->addLayout(beside);
    lines->addLayout(row);
    return box;
}

BatchFormView::BatchFormView(BatchForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    whole->setSpacing(kGap);
    whole->addWidget(ListStep(form), 1);
    whole->addWidget(LogStep(form));
    whole->addWidget(AutomaticStep(form));
    whole->addLayout(Row({Make(form.Label3), Make(form.Command2), Make(form.Command4), Make(form.Command3), Make(form.ComHelp)}, 0));
}

SelectFormView::SelectFormView(SelectForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    const auto column = [this](Label& label, ListBox& box, const char* nothing) {
        ListView* list = Make(box);
        list->SetHintRows(12);
        list->SetMeasuresRows();
        list->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
        list->SetPlaceholder(nothing);
        auto* both = new QVBoxLayout;
        both->addWidget(MakeFor(label, list));
        both->addWidget(list, 1);
        return both;
    };
    auto* buttons = new QVBoxLayout;
    buttons->addStretch();
    for (CommandButton* button : {&form.ComAdd, &form.ComRemove, &form.ComRemoveAll}) buttons->addWidget(Make(*button));
    buttons->addStretch();
    auto* lists = new QHBoxLayout;
    lists->setSpacing(kGap);
    lists->addLayout(column(form.Label1, form.List1, "Every entry is on the list."), 1);
    lists->addLayout(buttons);
    lists->addLayout(column(form.Label2, form.List2, "Add what is to be checked."), 1);
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(lists, 1);
    whole->addSpacing(kGap / 2);
    whole->addLayout(ButtonRow({Make(form.ComOkay), Make(form.ComCancel)}));
}

// A field with two small arrows behind it: the upper one counts up.
void ScheduleFormView::AddSpinner(QHBoxLayout& row, TextBox& text, ScrollBar& bar) {
    QLineEdit* field = Make(text);
    field->setFixedWidth(fontMetrics().horizontalAdvance("00000"));
    QScrollBar* arrows = Make(bar, Qt::Vertical);
    arrows->setPageStep(1);
    arrows->setFixedHeight(field->sizeHint().height());
    row.addWidget(field);
    row.addWidget(arrows);
}

QWidget* ScheduleFormView::WeekBox(ScheduleForm& form) {
    QGroupBox* box = MakeBox(form.Frame1);
    auto* days = new QVBoxLayout;
    days->setSpacing(4);
    days->addWidget(Make(form.Label3));
    for (const auto& day : form.CheckDay) days->addWidget(Make(*day));
    days->addStretch();
    auto* time = new QVBoxLayout;
    time->addWidget(Make(form.Label5));
    auto* clock = new QHBoxLayout;
    clock->setSpacing(2);
    AddSpinner(*clock, form.TextHour, form.ScrollLabelTop);
    auto* colon = new TextLabel(TextLabel::Style::Line, this);
    colon->setText(":");
    clock->addWidget(colon);
    AddSpinner(*clock, form.TextMinute, form.ScrollLabelLeft);
    clock->addSpacing(kGap);
    QComboBox* half = Make(form.ComboAMPM);
    half->lineEdit()->setReadOnly(true);
    half->setFixedWidth(fontMetrics().horizontalAdvance("AM") + 3 * kGap + half->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    clock->addWidget(half);
    time->addLayout(clock);
    time->addStretch();
    auto* columns = new QHBoxLayout(box);
    columns->setSpacing(kGap * 2);
    columns->addLayout(days);
    columns->addLayout(time);
    columns->addStretch();
    return box;
}

ScheduleFormView::ScheduleFormView(ScheduleForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    whole->setSpacing(kGap);
    whole->addWidget(Make(form.Label4, TextLabel::Style::Wrapped));
    QLineEdit* computer = Make(form.Text1);
    whole->addLayout(Row({MakeFor(form.Label1, computer), computer}, 1));
    whole->addWidget(WeekBox(form));
    auto* status = new QHBoxLayout;
    status->addWidget(Make(form.LabelStatus, TextLabel::Style::Wrapped), 1);
    status->addWidget(Make(form.Command3), 0, Qt::AlignTop);
    whole->addLayout(status);
    whole->addStretch();
    whole->addLayout(ButtonRow({Make(form.Command2), Make(form.Command1)}));
}

}  // namespace qv
