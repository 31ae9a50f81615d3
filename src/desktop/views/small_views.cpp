#include "desktop/views/small_views.h"

#include <QCheckBox>
#include <QFrame>
#include <QPushButton>
#include <QScrollArea>
#include <string_view>

#include "desktop/icons.h"
#include "desktop/layout.h"

namespace qv {
namespace {

QWidget* ProgramPicture(int side) {
    auto* picture = new PictureView;
    picture->setFixedSize(side, side);
    picture->SetPaint([](QPainter& painter, const QRect& place) { ProgramIcon().paint(&painter, place); });
    return picture;
}

}  // namespace

// At the start it is a picture on the screen, without a frame; as the About window it has a frame and a button.
InitialFormView::InitialFormView(InitialForm& form, QWidget* parent)
    : FormWindow(form, parent, form.Command1.Visible() ? Qt::Dialog : Qt::SplashScreen) {
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(28, 28, 28, 20);
    whole->setSpacing(10);
    auto* name = new QHBoxLayout;
    name->setSpacing(18);
    name->addWidget(ProgramPicture(72));
    auto* texts = new QVBoxLayout;
    texts->addStretch();
    texts->addWidget(Enlarged(Make(form.Label1), 1.8));
    texts->addWidget(Make(form.Label2, TextLabel::Style::Wrapped));
    texts->addStretch();
    name->addLayout(texts, 1);
    whole->addLayout(name, 1);
    whole->addWidget(Make(form.Label3));
    whole->addLayout(ButtonRow({Make(form.Command1)}));
}

void InitialFormView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

TipFormView::TipFormView(TipForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    whole->setSpacing(12);
    auto* paper = new QFrame;
    paper->setFrameShape(QFrame::StyledPanel);
    paper->setBackgroundRole(QPalette::Base);
    paper->setAutoFillBackground(true);
    auto* text = new QVBoxLayout(paper);
    text->setContentsMargins(18, 16, 18, 16);
    text->setSpacing(12);
    auto* heading = new QHBoxLayout;
    heading->setSpacing(12);
    heading->addWidget(ProgramPicture(32));
    heading->addWidget(Enlarged(Make(form.Label1), 1.3), 1);
    text->addLayout(heading);
    TextLabel* tip = Make(form.lblTipText, TextLabel::Style::Wrapped);
    tip->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* scrolled = new QScrollArea;  // for a long tip
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setWidgetResizable(true);
    scrolled->setFocusPolicy(Qt::NoFocus);
    tip->setBackgroundRole(QPalette::Base);
    scrolled->setWidget(tip);
    text->addWidget(scrolled, 1);
    whole->addWidget(paper, 1);
    auto* below = ButtonRow({Make(form.cmdNextTip), Make(form.cmdOK)});
    below->insertWidget(0, Make(form.chkLoadTipsAtStartup));
    whole->addLayout(below);
}

CodeFormView::CodeFormView(CodeForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    auto* table = new QWidget;
    auto* columns = new QHBoxLayout(table);
    columns->setSpacing(28);
    QVBoxLayout* column = nullptr;
    const auto begin = [&] {
        if (column != nullptr) column->addStretch();
        column = new QVBoxLayout;
        column->setSpacing(2);
        columns->addLayout(column);
    };
    begin();
    for (const auto& line : form.Lines) {
        const std::string_view text = line->Caption();
        const bool entry = text.find("- ") != std::string_view::npos || text.front() == '(';
        if (text == "Table Of HTTP Status Codes" || text == "Error Codes (Client)") begin();
        if (!entry && column->count() > 0) column->addSpacing(8);
        TextLabel* shown = Make(*line);
        column->addWidget(entry ? shown : Enlarged(shown, 1.0));
    }
    column->addStretch();
    auto* scrolled = new QScrollArea;
    scrolled->setWidget(table);
    scrolled->setWidgetResizable(true);
    scrolled->setFrameShape(QFrame::StyledPanel);
    scrolled->setMinimumSize(table->sizeHint().boundedTo({1000, 700}) + QSize(24, 8));
    whole->addWidget(scrolled, 1);
    whole->addLayout(ButtonRow({Make(form.ComClose)}));
}

}  // namespace qv
