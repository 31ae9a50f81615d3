#include "desktop/views/check_form_view.h"

#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QToolButton>
#include <algorithm>
#include <vector>

#include "desktop/icons.h"
#include "desktop/list_binder.h"
#include "desktop/qt_text.h"
#include "desktop/theme.h"
#include "mainwindow/window_rules.h"
#include "session/link_rows.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr int kGap = 16;          // between the lists and the column of buttons
constexpr int kIconSide = 22;     // of a tool button
constexpr int kToolSpacing = 2;   // between tool buttons
constexpr int kToolGroupGap = 8;  // between their groups
constexpr int kStatusWidth = 6;   // characters of a row
constexpr int kLabelEnd = 38;     // the address begins behind this many characters and a blank

// The headings of the link list. They stand above their columns, however far the list is scrolled.
class Headings : public QWidget {
   public:
    Headings(ListView& list, std::vector<QLabel*> labels) : list_(list), labels_(std::move(labels)) {
        setFixedHeight(labels_[0]->sizeHint().height() + 6);
        for (QLabel* label : labels_) label->setParent(this);
        list_.Scrolled = [this] { Arrange(); };
        Arrange();
    }

   protected:
    void resizeEvent(QResizeEvent*) override { Arrange(); }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Button));
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(rect().adjusted(0, 0, -1, 0));
    }

   private:
    void Arrange() {
        const int starts[] = {0, kStatusWidth, kLabelEnd + 1};
        for (std::size_t i = 0; i < labels_.size(); ++i) {
            const int left = list_.frameWidth() + list_.TextLeft() + list_.WidthOf(starts[i]) - list_.ScrolledBy();
            labels_[i]->move(left, (height() - labels_[i]->sizeHint().height()) / 2);
        }
    }
    ListView& list_;
    std::vector<QLabel*> labels_;
};

QWidget* WidgetWith(QLayout* layout) {
    auto* widget = new QWidget;
    layout->setContentsMargins(0, 0, 0, 0);
    widget->setLayout(layout);
    return widget;
}

void PaintLamp(QPainter& painter, const QRect& place, const Picture& lamp) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor colour = FillColour(lamp.Fill());
    painter.setPen(QPen(colour.darker(150), 1));
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}

void PaintRunner(QPainter& painter, const QRect& place, const Picture& runner, const QPalette& palette) {
    painter.fillRect(place, palette.color(QPalette::Base));
    painter.fillRect(runner.RunnerLeft(), 0, runner.RunnerWidth(), place.height(), palette.color(QPalette::Text));
    painter.setPen(palette.color(QPalette::Mid));
    painter.drawRect(place.adjusted(0, 0, -1, -1));
}

}  // namespace

CheckFormView::CheckFormView(CheckForm& form, QWidget* parent) : FormWindow(form, parent, Qt::Window) {
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    whole->setMenuBar(MakeMenuBar());
    whole->addLayout(ToolRow(form));

    auto* upper = new QHBoxLayout;
    upper->setSpacing(kGap);
    upper->addLayout(DocumentColumn(form), 1);
    upper->addLayout(ButtonColumn(form));

    auto* halves = new QSplitter(Qt::Vertical, this);
    halves->addWidget(WidgetWith(upper));
    halves->addWidget(WidgetWith(LinkPart(form)));
    halves->setStretchFactor(0, 0);
    halves->setStretchFactor(1, 1);
    halves->setChildrenCollapsible(false);
    halves->setHandleWidth(8);
    auto* middle = new QVBoxLayout;
    middle->setContentsMargins(10, 4, 10, 4);
    middle->addWidget(halves);
    whole->addLayout(middle, 1);
    whole->addWidget(StatusRow(form));
    NameForAssistance(form);
}

QLayout* CheckFormView::ToolRow(CheckForm& form) {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(8, 4, 8, 4);
    row->setSpacing(kToolSpacing);
    const std::vector<const ToolButton*> groupStarts = {&form.ToolEnter, &form.ToolCopyURL, &form.ToolDocDelete};
    for (ToolButton* tool : form.ToolButtons()) {
        if (std::find(groupStarts.begin(), groupStarts.end(), tool) != groupStarts.end()) row->addSpacing(kToolGroupGap);
        QToolButton* shown = Make(*tool);
        shown->setIcon(ToolIcon(tool->Name()));
        shown->setIconSize({kIconSide, kIconSide});
        row->addWidget(shown);
    }
    row->addStretch();
    return row;
}

QWidget* CheckFormView::Indicator(CheckForm& form) {
    auto* lamp = Make(form.Picture2);
    lamp->setFixedSize(16, 16);
    lamp->SetPaint([&form](QPainter& painter, const QRect& place) { PaintLamp(painter, place, form.Picture2); });
    auto* row = new QHBoxLayout;
    row->addWidget(lamp);
    row->addWidget(Make(form.LabelInd, TextLabel::Style::Cut), 1);
    auto* indicator = WidgetWith(row);
    indicator->setMinimumHeight(fontMetrics().height() + 2);
    return indicator;
}

QLayout* CheckFormView::DocumentColumn(CheckForm& form) {
    auto* column = new QVBoxLayout;
    column->setSpacing(5);
    ListView* documents = Make(form.txtFileName);
    documents->SetHintRows(5);
    documents->SetPlaceholder("No documents yet. Check a Web site or a document to begin.");
    column->addWidget(MakeFor(form.lblFileName, documents));
    column->addWidget(documents, 1);

    auto* address = new QHBoxLayout;
    QLineEdit* box = Make(form.TextFileName);
    address->addWidget(MakeFor(form.LabelAddress, box));
    address->addWidget(box, 1);
    column->addLayout(address);
    column->addWidget(Indicator(form));

    auto* bar = Make(form.ProgressBar1);
    auto* runner = Make(form.Picture1);
    runner->SetPaint([&form, runner](QPainter& painter, const QRect& place) {
        PaintRunner(painter, place, form.Picture1, runner->palette());
    });
    // The runner takes the size and the place of the bar.
    auto* progress = new PictureView;
    progress->setFixedHeight(14);
    bar->setParent(progress);
    runner->setParent(progress);
    progress->Resized = [&form, bar, runner, progress](int width) {
        bar->setGeometry(progress->rect());
        runner->setGeometry(progress->rect());
        form.Picture1.SetPixelWidth(width);
    };
    column->addWidget(progress);
    return column;
}

QLayout* CheckFormView::ButtonColumn(CheckForm& form) {
    auto* column = new QGridLayout;
    column->setHorizontalSpacing(2);
    column->setVerticalSpacing(5);
    int row = 0;
    const auto wide = [&](CommandButton& button) { column->addWidget(Make(button), row++, 0, 1, 2); };
    const auto pair = [&](CommandButton& left, CommandButton& right) {
        column->addWidget(Make(left), row, 0);
        column->addWidget(Make(right), row++, 1);
    };
    wide(form.Command1);
    wide(form.ComOpen);
    wide(form.ComStart);
    pair(form.ComStop, form.ComSkip);
    pair(form.SpinLeft, form.SpinRight);
    wide(form.ComHide);
    wide(form.Command2);
    column->setRowStretch(row, 1);
    // Captions change: the column stays as wide as the longest needs it.
    column->setColumnMinimumWidth(0, fontMetrics().horizontalAdvance("Cancel Doc") + 20);
    column->setColumnMinimumWidth(1, fontMetrics().horizontalAdvance("Cancel Doc") + 20);
    return column;
}

QLayout* CheckFormView::LinkPart(CheckForm& form) {
    auto* part = new QVBoxLayout;
    part->setSpacing(0);
    ListView* links = Make(form.List1);
    links->SetFixedPitch();
    links->SetPlaceholder("The links of the selected document are listed here. The ticked ones are checked.");
    links->SetLead([links](std::string_view row) -> std::optional<ListView::Lead> {
        const auto tone = ToneOfStatus(Trim(row.substr(0, kStatusWidth)));
        if (tone == StatusTone::None) return std::nullopt;
        return ListView::Lead{kStatusWidth, ToneColour(tone, links->palette())};
    });
    QSizePolicy policy = links->sizePolicy();
    policy.setRetainSizeWhenHidden(true);  // it is hidden while it is being filled
    links->setSizePolicy(policy);
    form.FontNamePicture.SetCharacterWidth(links->WidthOf(1));
    part->addWidget(new Headings(*links, {Make(form.LabelStatus), Make(form.LabelText), Make(form.LabelUrl)}));
    part->addWidget(links, 1);
    return part;
}

QWidget* CheckFormView::StatusRow(CheckForm& form) {
    auto* bar = new QStatusBar(this);
    bar->setContentsMargins(8, 0, 0, 0);
    bar->addWidget(Make(form.StatusBar1), 1);
    return bar;
}

// What has no caption to be read out.
void CheckFormView::NameForAssistance(CheckForm& form) {
    for (const auto& [control, purpose] : ToolTips(form))
        if (Binder* binder = BinderOf(*control)) binder->Widget()->setAccessibleName(purpose);
    const std::pair<const Control*, const char*> names[] = {{&form.SpinLeft, "Previous document"},
                                                            {&form.SpinRight, "Next document"},
                                                            {&form.List1, "Links"},
                                                            {&form.txtFileName, "Documents"},
                                                            {&form.ProgressBar1, "Progress"},
                                                            {&form.Picture2, "Retrieval indicator"},
                                                            {&form.StatusBar1, "Status"}};
    for (const auto& [control, name] : names) BinderOf(*control)->Widget()->setAccessibleName(name);
}

}  // namespace qv
