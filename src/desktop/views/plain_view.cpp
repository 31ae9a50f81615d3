#include "desktop/views/plain_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QToolButton>

#include "desktop/list_view.h"

namespace qv {

PlainView::PlainView(Form& form, QWidget* parent) : FormWindow(form, parent, Qt::Dialog) {
    auto* whole = new QVBoxLayout(this);
    if (!form.Menus().empty()) whole->setMenuBar(MakeMenuBar());
    for (Control* control : form.Controls()) {
        QWidget* shown = MakeAny(*control);
        if (shown == nullptr) continue;
        if (control->Kind() == ControlKind::Frame) new QVBoxLayout(shown);
        QLayout* place = shown->parentWidget()->layout();
        (place != nullptr ? place : whole)->addWidget(shown);
    }
}

QWidget* PlainView::MakeAny(Control& control) {
    switch (control.Kind()) {
        case ControlKind::Label: return Make(static_cast<Label&>(control), TextLabel::Style::Wrapped);
        case ControlKind::CommandButton: return Make(static_cast<CommandButton&>(control));
        case ControlKind::ToolButton: return Make(static_cast<ToolButton&>(control));
        case ControlKind::Frame: return MakeBox(static_cast<Frame&>(control));
        case ControlKind::Picture: return Make(static_cast<Picture&>(control));
        case ControlKind::CheckBox: return Make(static_cast<CheckBox&>(control));
        case ControlKind::OptionButton: return Make(static_cast<OptionButton&>(control));
        case ControlKind::ComboBox: return Make(static_cast<ComboBox&>(control));
        case ControlKind::ListBox: return Make(static_cast<ListBox&>(control));
        case ControlKind::ProgressBar: return Make(static_cast<ProgressBar&>(control));
        case ControlKind::ScrollBar: return Make(static_cast<ScrollBar&>(control));
        case ControlKind::StatusBar: return Make(static_cast<StatusBar&>(control));
        case ControlKind::TabStrip: return Make(static_cast<TabStrip&>(control));
        case ControlKind::TextBox: {
            auto& box = static_cast<TextBox&>(control);
            return box.MultiLine() ? static_cast<QWidget*>(MakeText(box)) : Make(box);
        }
        default: return nullptr;
    }
}

}  // namespace qv
