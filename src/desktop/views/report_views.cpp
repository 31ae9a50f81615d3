#include "desktop/views/report_views.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "desktop/layout.h"
#include "desktop/list_view.h"

namespace qv {
namespace {

constexpr int kGap = 12;  // between a list and its buttons, and between groups

// Buttons of one width, one below the other.
QVBoxLayout* ButtonColumn(std::initializer_list<QWidget*> buttons) {
    auto* column = new QVBoxLayout;
    for (QWidget* button : buttons) column->addWidget(button);
    return column;
}

}  // namespace

ReportFormView::ReportFormView(ReportForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    QPlainTextEdit* log = MakeText(form.Text1);
    log->setMinimumSize(380, 200);
    whole->addWidget(Make(form.Label2, TextLabel::Style::Wrapped));
    whole->addWidget(MakeFor(form.Label1, log));
    whole->addWidget(log, 1);
    whole->addLayout(ButtonRow({Make(form.Command2), Make(form.ComCopy), Make(form.Command1)}));
}

ReportOptionsView::ReportOptionsView(frmform& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    whole->addWidget(Make(form.Label1));
    for (CheckBox* box : {&form.CheckText, &form.CheckAscii, &form.CheckHTML}) whole->addWidget(Make(*box));
    whole->addSpacing(kGap);
    for (CheckBox* box : {&form.CheckWhich, &form.CheckAllInOne, &form.CheckOneOnly}) whole->addWidget(Make(*box));
    whole->addSpacing(kGap);
    QLineEdit* folder = Make(form.txtFileName);
    folder->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    whole->addWidget(MakeFor(form.lblFileName, folder));
    whole->addLayout(Row({folder, Make(form.ComBrowse)}, 0));
    whole->addStretch();
    whole->addSpacing(kGap);
    whole->addLayout(ButtonRow({Make(form.cmdOK), Make(form.cmdCancel), Make(form.ComHelp)}));
}

ReportManagerView::ReportManagerView(ReportManagerForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    whole->addWidget(Make(form.Label1));
    whole->addWidget(Make(form.LabelPath, TextLabel::Style::Cut));
    whole->addSpacing(kGap / 2);
    ListView* list = Make(form.List1);
    list->SetPlaceholder("There is nothing in this folder yet.");
    list->SetMeasuresRows();
    whole->addWidget(MakeFor(form.Label2, list));

    QGroupBox* kinds = MakeBox(form.Frame1);
    auto* options = new QVBoxLayout(kinds);
    for (OptionButton* option : {&form.TextReports, &form.AsciiReports, &form.HtmlReports, &form.AllReports})
        options->addWidget(Make(*option));
    QVBoxLayout* column = ButtonColumn({kinds, Make(form.ComShow), Make(form.ComEmail), Make(form.Command1), Make(form.ComBrowse)});
    column->addStretch();
    for (CommandButton* button : {&form.ComClose, &form.ComHelp}) column->addWidget(Make(*button));
    auto* middle = new QHBoxLayout;
    middle->addWidget(list, 1);
    middle->addSpacing(kGap);
    middle->addLayout(column);
    whole->addLayout(middle, 1);
}

ReportSelectView::ReportSelectView(ReportSelectForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    ListView* list = Make(form.List1);
    list->SetHintRows(6);
    list->SetPlaceholder("No report was written.");
    list->SetMeasuresRows();
    whole->addWidget(MakeFor(form.Label1, list));
    QGroupBox* kinds = MakeBox(form.Frame1);
    auto* options = new QVBoxLayout(kinds);
    for (OptionButton* option : {&form.TextReports, &form.AsciiReports, &form.HtmlReports}) options->addWidget(Make(*option));
    QVBoxLayout* column = ButtonColumn({kinds, Make(form.ComShow), Make(form.Command1)});
    column->addStretch();
    column->addWidget(Make(form.ComClose));
    auto* middle = new QHBoxLayout;
    middle->addWidget(list, 1);
    middle->addSpacing(kGap);
    middle->addLayout(column);
    whole->addLayout(middle, 1);
}

}  // namespace qv
