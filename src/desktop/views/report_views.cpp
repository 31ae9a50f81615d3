#include "desktop/views/report_views.h"

#include <QPlainTextEdit>
#include <QPushButton>

#include "desktop/layout.h"

namespace qv {

ReportFormView::ReportFormView(ReportForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    QPlainTextEdit* log = MakeText(form.Text1);
    log->setMinimumSize(380, 200);
    whole->addWidget(Make(form.Label2, TextLabel::Style::Wrapped));
    whole->addWidget(MakeFor(form.Label1, log));
    whole->addWidget(log, 1);
    whole->addLayout(ButtonRow({Make(form.Command2), Make(form.ComCopy), Make(form.Command1)}));
}

}  // namespace qv
