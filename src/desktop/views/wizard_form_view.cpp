#include "desktop/views/wizard_form_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "desktop/icons.h"
#include "desktop/layout.h"

namespace qv {
namespace {

using Style = TextLabel::Style;

}  // namespace

WizardFormView::WizardFormView(WizardForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    whole->setSpacing(0);
    whole->addWidget(Make(form.TabStrip1));
    whole->addWidget(PagesInOnePlace({AddressPage(form), OpenPage(form), AuthorizationPage(form), ReportsPage(form)}), 1);
    whole->addSpacing(10);
    auto* buttons = ButtonRow({Make(form.ComOpenNext), Make(form.ComApply), Make(form.ComEdit), Make(form.ComCloseCancel),
                               Make(form.ComHelp)});
    whole->addLayout(buttons);
}

QLineEdit* WizardFormView::Narrow(TextBox& box) {
    QLineEdit* line = Make(box);
    line->setMaximumWidth(line->fontMetrics().horizontalAdvance("0000000000"));
    return line;
}

QWidget* WizardFormView::AddressPage(WizardForm& form) {
    QWidget* page = MakePage(form.Page1);
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(12, 16, 12, 12);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    PictureView* local = Make(form.ImageLocal);
    PictureView* internet = Make(form.ImageInternet);
    local->SetPaint(DrawLocal);
    internet->SetPaint(DrawInternet);
    for (PictureView* picture : {local, internet}) {
        picture->setFixedSize(48, 48);
        grid->addWidget(picture, 0, 0, Qt::AlignTop | Qt::AlignHCenter);
    }
    QComboBox* address = Make(form.Text1);
    QLineEdit* file = Make(form.Text2);
    QLineEdit* folder = Make(form.Text3);
    QPushButton* browse = Make(form.ComBrowse);
    const auto group = [&](int row, Label& prompt, Label& need, QWidget* field) {
        grid->addWidget(MakeFor(prompt, field, Style::Wrapped), row, 1, 1, 2);
        grid->addWidget(Make(need), row + 1, 0, Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(field, row + 1, 1, 1, 2);
        grid->setRowMinimumHeight(row + 2, 8);
    };
    group(0, form.Label4, form.Label19, address);
    group(3, form.Label5, form.Label20, file);
    group(6, form.Label6, form.Label21, folder);
    // The button stands beside the field that it fills.
    const bool fillsAddress = form.ImageLocal.Visible() && !form.Text2.Visible();
    QWidget* filled = fillsAddress ? static_cast<QWidget*>(address) : folder;
    grid->removeWidget(filled);
    grid->addWidget(filled, fillsAddress ? 1 : 7, 1);
    grid->addWidget(browse, fillsAddress ? 1 : 7, 2);
    int row = 9;
    for (OptionButton* option : {&form.Option1, &form.Option2, &form.Option3}) grid->addWidget(Make(*option), row++, 1, 1, 2);
    grid->setRowStretch(row, 1);
    return page;
}

QWidget* WizardFormView::SiteOpenBox(WizardForm& form) {
    QWidget* box = MakeBox(form.Frame9);
    auto* column = new QVBoxLayout(box);
    QLineEdit* types = Make(form.Text5);
    QLineEdit* ignored = Make(form.Text4);
    QComboBox* texts = Make(form.ComboTextIgnore);
    column->addWidget(MakeFor(form.Label7, types, Style::Wrapped));
    column->addLayout(Row({types, Make(form.Command3)}, 0));
    column->addWidget(MakeFor(form.Label8, ignored, Style::Wrapped));
    column->addLayout(Row({ignored, Make(form.Command4)}, 0));
    column->addWidget(MakeFor(form.Label22, texts, Style::Wrapped));
    column->addLayout(Row({texts, Make(form.Command2), Make(form.Command5)}, 0));
    return box;
}

QWidget* WizardFormView::OpenPage(WizardForm& form) {
    QWidget* page = MakePage(form.Page2);
    auto* column = new QVBoxLayout(page);
    column->addWidget(SiteOpenBox(form));
    for (CheckBox* box : {&form.Check1, &form.Check2, &form.Check3}) column->addWidget(Make(*box));
    QLineEdit* ignored = Make(form.Text7);
    column->addWidget(MakeFor(form.Label23, ignored, Style::Wrapped));
    column->addLayout(Row({ignored, Make(form.Command1)}, 0));
    QLineEdit* seconds = Narrow(form.Text8);
    column->addLayout(Row({MakeFor(form.Label11, seconds), seconds, Make(form.Label12)}));
    column->addStretch();
    return page;
}

QWidget* WizardFormView::FtpBox(WizardForm& form) {
    QWidget* box = MakeBox(form.Frame6);
    auto* grid = new QGridLayout(box);
    grid->addWidget(Make(form.Check4), 0, 0, 1, 2);
    const auto field = [&](Label& label, QLineEdit* line) { AddField(*grid, MakeFor(label, line), line); };
    field(form.Label15, Make(form.Text9));
    field(form.Label16, Make(form.Text10));
    field(form.Label10, Narrow(form.Text6));
    grid->setRowStretch(grid->rowCount(), 1);
    return box;
}

QWidget* WizardFormView::HttpBox(WizardForm& form) {
    QWidget* box = MakeBox(form.Frame4);
    auto* grid = new QGridLayout(box);
    grid->addWidget(Make(form.Check5), 0, 0, 1, 2);
    const auto field = [&](Label& label, QLineEdit* line) { AddField(*grid, MakeFor(label, line), line); };
    field(form.Label13, Make(form.TextUserName));
    field(form.Label14, Make(form.TextPassword));
    grid->setRowStretch(grid->rowCount(), 1);
    return box;
}

QWidget* WizardFormView::ProxyBox(WizardForm& form) {
    QWidget* box = MakeBox(form.Frame5);
    auto* grid = new QGridLayout(box);
    const auto field = [&](int row, int column, Label& label, QLineEdit* line) {
        grid->addWidget(MakeFor(label, line), row, column);
        grid->addWidget(line, row, column + 1);
    };
    grid->addWidget(Make(form.Check6), 0, 0, 1, 2);
    field(1, 0, form.Label17, Make(form.TextServer));
    field(2, 0, form.Label18, Narrow(form.TextPort));
    grid->setColumnMinimumWidth(2, 16);
    grid->addWidget(Make(form.Check7), 0, 3, 1, 2);
    field(1, 3, form.Label24, Make(form.TextProxyUserName));
    field(2, 3, form.Label26, Make(form.TextProxyPassword));
    return box;
}

QWidget* WizardFormView::AuthorizationPage(WizardForm& form) {
    QWidget* page = MakePage(form.Page3);
    auto* column = new QVBoxLayout(page);
    column->addWidget(Make(form.Label9, Style::Wrapped));
    auto* pair = new QHBoxLayout;
    pair->addWidget(FtpBox(form), 1);
    pair->addWidget(HttpBox(form), 1);
    column->addLayout(pair);
    column->addWidget(ProxyBox(form));
    QWidget* agent = MakeBox(form.Frame7);
    agent->setLayout(Row({Make(form.TextUserAgent), Make(form.Command7)}, 0));
    column->addWidget(agent);
    column->addStretch();
    return page;
}

QWidget* WizardFormView::ReportSettingsBox(WizardForm& form) {
    QWidget* box = MakeBox(form.Frame3);
    auto* column = new QVBoxLayout(box);
    QLineEdit* folder = Make(form.TextReportPath);
    column->addWidget(MakeFor(form.Label28, folder));
    column->addLayout(Row({folder, Make(form.Command9)}, 0));
    column->addWidget(Make(form.CheckWhich));
    column->addWidget(Make(form.Check8));
    QComboBox* addresses = Make(form.Combo1);
    column->addLayout(Row({MakeFor(form.Label27, addresses), addresses, Make(form.Command6), Make(form.Command8)}, 1));
    column->addWidget(Make(form.Check9));
    return box;
}

QWidget* WizardFormView::ReportsPage(WizardForm& form) {
    QWidget* page = MakePage(form.Page4);
    auto* column = new QVBoxLayout(page);
    column->addWidget(Make(form.Check10));
    QWidget* kinds = MakeBox(form.Frame8);
    auto* list = new QVBoxLayout(kinds);
    for (CheckBox* box : {&form.Check13, &form.Check12, &form.Check11}) list->addWidget(Make(*box));
    column->addWidget(kinds);
    column->addWidget(ReportSettingsBox(form));
    column->addStretch();
    return page;
}

}  // namespace qv
