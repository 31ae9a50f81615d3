#include "desktop/views/link_views.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/layout.h"

namespace qv {

SearchFormView::SearchFormView(SearchForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    QLineEdit* text = Make(form.TextFind);
    whole->addLayout(Row({MakeFor(form.Label1, text), text}, 1));
    whole->addWidget(Make(form.Check1));
    whole->addStretch();
    whole->addLayout(ButtonRow({Make(form.ComFind), Make(form.ComCancel)}));
}

EditFormView::EditFormView(EditForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    const auto field = [&](Label& label, TextBox& box) {
        QLineEdit* line = Make(box);
        AddField(*grid, MakeFor(label, line), line);
    };
    field(form.Label1, form.TextLink);
    field(form.Label2, form.TextURL);
    field(form.Label3, form.TextFile);
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(grid);
    whole->addStretch();
    whole->addLayout(ButtonRow({Make(form.ComOkay), Make(form.ComCancel)}));
}

}  // namespace qv
