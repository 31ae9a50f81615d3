#include "desktop/views/config_form_view.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/layout.h"

namespace qv {

ConfigFormView::ConfigFormView(ConfigForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    using Style = TextLabel::Style;
    std::vector<QWidget*> pages;
    std::vector<TitledPage*> titled;
    for (Frame* frame : {&form.Page0, &form.Page1, &form.Page2, &form.Page3}) pages.push_back(titled.emplace_back(MakeTitledPage(*frame)));
    const auto lay = [&](std::size_t page, std::initializer_list<QWidget*> rows) {
        QVBoxLayout& column = titled[page]->Content();
        column.setSpacing(8);
        for (QWidget* row : rows) column.addWidget(row);
        column.addStretch();
    };
    const auto field = [&](Label& label, TextBox& box) {
        QLineEdit* line = Make(box);
        return std::pair<QWidget*, QWidget*>{MakeFor(label, line, Style::Wrapped), line};
    };
    lay(0, {Make(form.LabelWelcome, Style::Wrapped)});
    const auto [serverLabel, server] = field(form.LabelMailServer, form.TextMailServer);
    const auto [fromLabel, from] = field(form.LabelFromEmail, form.TextFromEmail);
    const auto [nameLabel, name] = field(form.LabelFromName, form.TextFromName);
    lay(1, {Make(form.LabelSender, Style::Wrapped), serverLabel, server, fromLabel, from, nameLabel, name});
    const auto [userLabel, user] = field(form.LabelAuthName, form.TextAuthName);
    const auto [wordLabel, word] = field(form.LabelAuthPassword, form.TextAuthPassword);
    lay(2, {Make(form.LabelAuth, Style::Wrapped), Make(form.CheckAuth), userLabel, user, wordLabel, word});
    lay(3, {Make(form.LabelDone, Style::Wrapped)});

    auto* whole = new QVBoxLayout(this);
    whole->addWidget(PagesInOnePlace(pages), 1);
    whole->addLayout(ButtonRow({Make(form.ComBack), Make(form.ComNext), Make(form.ComFinish), Make(form.ComCancel)}));
}

}  // namespace qv
