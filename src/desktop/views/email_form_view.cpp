#include "desktop/views/email_form_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "desktop/layout.h"
#include "desktop/list_view.h"

namespace qv {

EmailFormView::EmailFormView(EmailForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    const auto field = [&](Label& label, QWidget* widget, Qt::Alignment place = Qt::AlignVCenter) {
        const int row = grid->rowCount();
        grid->addWidget(MakeFor(label, widget), row, 0, place);
        grid->addWidget(widget, row, 1);
        return row;
    };
    int row = field(form.LabelTo, Make(form.TextTo));
    grid->addWidget(Make(form.ComAdd), row, 2);

    ListView* copies = Make(form.ListCC);
    copies->SetHintRows(5);
    copies->SetMeasuresRows();
    copies->SetPlaceholder("The addresses that you write to are kept here.");
    row = field(form.LabelCC, copies, Qt::AlignTop);
    grid->setRowStretch(row, 1);
    auto* beside = new QVBoxLayout;
    beside->addWidget(Make(form.CheckBCC));
    TextLabel* hint = Make(form.LabelHint, TextLabel::Style::Wrapped);
    hint->setMaximumWidth(fontMetrics().horizontalAdvance("remove addresses here"));
    beside->addWidget(hint);
    beside->addStretch();
    grid->addLayout(beside, row, 2);

    field(form.LabelSubject, Make(form.Subject));
    QPlainTextEdit* text = MakeText(form.Body);
    text->setMinimumHeight(fontMetrics().lineSpacing() * 5);
    row = field(form.LabelText, text, Qt::AlignTop);
    grid->setRowStretch(row, 2);
    grid->addWidget(Make(form.CheckComments), grid->rowCount(), 1);
    ListView* reports = Make(form.List1);
    reports->SetHintRows(4);
    reports->SetMeasuresRows();
    row = field(form.LabelReports, reports, Qt::AlignTop);
    grid->setRowStretch(row, 1);

    QGroupBox* progress = MakeBox(form.FrameProgress);
    auto* line = new QVBoxLayout(progress);
    line->addWidget(Make(form.LabelProgess));
    QSizePolicy policy = progress->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    progress->setSizePolicy(policy);

    auto* whole = new QVBoxLayout(this);
    whole->addLayout(grid, 1);
    whole->addWidget(progress);
    whole->addLayout(ButtonRow({Make(form.ComSend), Make(form.ComCancel), Make(form.ComHelp)}));
}

}  // namespace qv
