#include "desktop/views/default_form_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/layout.h"

namespace qv {
namespace {

using Style = TextLabel::Style;
constexpr int kGap = 12;  // between groups

}  // namespace

DefaultFormView::DefaultFormView(DefaultForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    whole->setSpacing(0);
    whole->addWidget(Make(form.TabStrip1));
    whole->addWidget(PagesInOnePlace({ProgramsPage(form), OpenPage(form), AuthorizationPage(form), MailPage(form)}), 1);
    whole->addSpacing(10);
    whole->addLayout(ButtonRow({Make(form.ComOpenNext), Make(form.ComCloseCancel), Make(form.ComHelp)}));
}

QLineEdit* DefaultFormView::Narrow(TextBox& box) {
    QLineEdit* line = Make(box);
    line->setMaximumWidth(line->fontMetrics().horizontalAdvance("0000000000"));
    return line;
}

QWidget* DefaultFormView::ProgramsPage(DefaultForm& form) {
    QWidget* page = MakePage(form.Page1);
    auto* grid = new QGridLayout(page);
    grid->setColumnStretch(1, 1);
    const auto program = [&](Label& label, TextBox& box, CommandButton& browse) {
        QLineEdit* line = Make(box);
        const int row = grid->rowCount();
        grid->addWidget(MakeFor(label, line), row, 0);
        grid->addWidget(line, row, 1);
        grid->addWidget(Make(browse), row, 2);
    };
    program(form.Label1, form.Text1, form.Command6);
    program(form.Label3, form.Text3, form.ComBrowse);
    program(form.Label2, form.Text2, form.Command2);
    grid->setRowMinimumHeight(grid->rowCount(), kGap);
    for (CheckBox* box : {&form.CheckAuto, &form.CheckIgnoreRemote, &form.Check7, &form.CheckRedirect})
        grid->addWidget(Make(*box), grid->rowCount(), 0, 1, 3);
    grid->setRowStretch(grid->rowCount(), 1);
    return page;
}

QWidget* DefaultFormView::OpenPage(DefaultForm& form) {
    QWidget* page = MakePage(form.Page2);
    auto* column = new QVBoxLayout(page);
    const auto field = [&](Label& label, TextBox& box) {
        QLineEdit* line = Make(box);
        column->addWidget(MakeFor(label, line, Style::Wrapped));
        column->addWidget(line);
    };
    field(form.Label7, form.Text5);
    field(form.Label8, form.Text4);
    QComboBox* texts = Make(form.ComboTextIgnore);
    column->addWidget(MakeFor(form.Label22, texts, Style::Wrapped));
    column->addLayout(Row({texts, Make(form.Command3), Make(form.Command5)}, 0));
    column->addSpacing(kGap / 2);
    for (CheckBox* box : {&form.Check1, &form.Check2, &form.Check3}) column->addWidget(Make(*box));
    column->addSpacing(kGap / 2);
    field(form.Label23, form.Text6);
    QLineEdit* seconds = Narrow(form.Text8);
    column->addLayout(Row({MakeFor(form.Label11, seconds), seconds, Make(form.Label12)}));
    column->addSpacing(kGap / 2);
    column->addLayout(Row({Make(form.Command1)}));
    column->addStretch();
    return page;
}

QWidget* DefaultFormView::LogInBox(Frame& frame, CheckBox& box, Label& first, TextBox& firstBox, Label& second, TextBox& secondBox) {
    QWidget* group = MakeBox(frame);
    auto* grid = new QGridLayout(group);
    grid->addWidget(Make(box), 0, 0, 1, 2);
    const auto field = [&](Label& label, QLineEdit* line) { AddField(*grid, MakeFor(label, line), line); };
    field(first, Make(firstBox));
    field(second, Make(secondBox));
    grid->setRowStretch(grid->rowCount(), 1);
    return group;
}

QWidget* DefaultFormView::AuthorizationPage(DefaultForm& form) {
    QWidget* page = MakePage(form.Page3);
    auto* column = new QVBoxLayout(page);
    column->addWidget(Make(form.Label9, Style::Wrapped));
    auto* pair = new QHBoxLayout;
    pair->addWidget(LogInBox(form.Frame4, form.Check5, form.Label13, form.TextUserName, form.Label14, form.TextPassword), 1);
    pair->addWidget(LogInBox(form.Frame5, form.Check6, form.Label17, form.TextServer, form.Label18, form.TextPort), 1);
    column->addLayout(pair);
    column->addWidget(LogInBox(form.Frame6, form.Check4, form.Label15, form.Text9, form.Label16, form.Text10));
    QWidget* agent = MakeBox(form.Frame7);
    agent->setLayout(Row({Make(form.TextUserAgent), Make(form.Command7)}, 0));
    column->addWidget(agent);
    column->addStretch();
    return page;
}

QWidget* DefaultFormView::MailPage(DefaultForm& form) {
    QWidget* page = MakePage(form.Page4);
    auto* grid = new QGridLayout(page);
    grid->setColumnStretch(1, 1);
    const auto field = [&](Label& label, TextBox& box) {
        QLineEdit* line = Make(box);
        AddField(*grid, MakeFor(label, line), line);
    };
    field(form.LabelMailServer, form.TextMailServer);
    field(form.LabelFromName, form.TextFromName);
    field(form.LabelFromEmail, form.TextFromEmail);
    grid->addWidget(Make(form.CheckAuth), grid->rowCount(), 0, 1, 2);
    field(form.LabelAuthName, form.TextAuthName);
    field(form.LabelAuthPassword, form.TextAuthPassword);
    grid->setRowMinimumHeight(grid->rowCount(), kGap);
    QLineEdit* folder = Make(form.TextReportPath);
    const int row = grid->rowCount();
    grid->addWidget(MakeFor(form.Label28, folder), row, 0);
    grid->addLayout(Row({folder, Make(form.Command9)}, 0), row, 1);
    for (CheckBox* box : {&form.Check13, &form.Check12, &form.Check11, &form.CheckWhich, &form.Check8, &form.Check9})
        grid->addWidget(Make(*box), grid->rowCount(), 0, 1, 2);
    grid->setRowStretch(grid->rowCount(), 1);
    return page;
}

}  // namespace qv
