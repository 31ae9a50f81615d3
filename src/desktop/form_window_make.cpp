// The widget of each kind of control.
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include "desktop/form_window.h"
#include "desktop/list_binder.h"
#include "desktop/qt_text.h"
#include "desktop/simple_binders.h"
#include "desktop/text_binders.h"

namespace qv {

QWidget* FormWindow::ParentFor(const Control& control) {
    Binder* container = control.Container() == nullptr ? nullptr : BinderOf(*control.Container());
    return container == nullptr ? this : container->Widget();
}

template <class BinderType, class ControlType, class WidgetType>
WidgetType* FormWindow::Bind(ControlType& control, WidgetType* widget) {
    auto binder = std::make_unique<BinderType>(control, widget);
    binder->HeedQuiet(showing_);
    binder->ShowAll();
    binder->WatchTarget();
    binders_[&control] = std::move(binder);
    return widget;
}

TextLabel* FormWindow::Make(Label& label, TextLabel::Style style) {
    return Bind<LabelBinder>(label, new TextLabel(style, ParentFor(label)));
}

TextLabel* FormWindow::MakeFor(Label& label, QWidget* named, TextLabel::Style style) {
    TextLabel* shown = Make(label, style);
    shown->setBuddy(named);
    return shown;
}

QPushButton* FormWindow::Make(CommandButton& button) {
    auto* shown = new QPushButton(ParentFor(button));
    shown->setAutoDefault(false);
    return Bind<ButtonBinder<CommandButton>>(button, shown);
}

QToolButton* FormWindow::Make(ToolButton& button) {
    auto* shown = new QToolButton(ParentFor(button));
    shown->setFocusPolicy(Qt::NoFocus);
    shown->setAutoRaise(true);
    return Bind<ButtonBinder<ToolButton>>(button, shown);
}

QGroupBox* FormWindow::MakeBox(Frame& frame) { return Bind<FrameBinder>(frame, new QGroupBox(ParentFor(frame))); }
QWidget* FormWindow::MakePage(Frame& frame) { return Bind<FrameBinder>(frame, new QWidget(ParentFor(frame))); }
TitledPage* FormWindow::MakeTitledPage(Frame& frame) { return Bind<FrameBinder>(frame, new TitledPage(ParentFor(frame))); }

PictureView* FormWindow::Make(Picture& picture) { return Bind<PictureBinder>(picture, new PictureView(ParentFor(picture))); }
QCheckBox* FormWindow::Make(CheckBox& box) { return Bind<TickBinder>(box, new QCheckBox(ParentFor(box))); }
QRadioButton* FormWindow::Make(OptionButton& option) { return Bind<TickBinder>(option, new QRadioButton(ParentFor(option))); }
QLineEdit* FormWindow::Make(TextBox& box) { return Bind<LineBinder>(box, new QLineEdit(ParentFor(box))); }
QPlainTextEdit* FormWindow::MakeText(TextBox& box) { return Bind<PageBinder>(box, new QPlainTextEdit(ParentFor(box))); }
QComboBox* FormWindow::Make(ComboBox& combo) { return Bind<ComboBinder>(combo, new QComboBox(ParentFor(combo))); }
ListView* FormWindow::Make(ListBox& list) { return Bind<ListBinder>(list, new ListView(ParentFor(list))); }
QScrollBar* FormWindow::Make(ScrollBar& bar, Qt::Orientation orientation) {
    auto* widget = new QScrollBar(orientation, ParentFor(bar));
    widget->setContextMenuPolicy(Qt::NoContextMenu);
    return Bind<ScrollBarBinder>(bar, widget);
}
QProgressBar* FormWindow::Make(ProgressBar& bar) { return Bind<ProgressBinder>(bar, new QProgressBar(ParentFor(bar))); }
TextLabel* FormWindow::Make(StatusBar& bar) { return Bind<StatusBinder>(bar, new TextLabel(TextLabel::Style::Cut, this)); }

TabBar* FormWindow::Make(TabStrip& strip) {
    tabs_ = new TabBar(this);
    AddTabKeys();
    return Bind<TabBinder>(strip, tabs_);
}

QMenuBar* FormWindow::MakeMenuBar() {
    auto* bar = new QMenuBar(this);
    menus_ = std::make_unique<Menus>(*form_, *bar);
    return bar;
}

}  // namespace qv
