#include "desktop/simple_binders.h"

#include <QRadioButton>
#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>

#include "desktop/qt_text.h"

namespace qv {

LabelBinder::LabelBinder(Label& label, TextLabel* widget) : Binder(label, widget), label_(widget) {}

void LabelBinder::ShowAspect(Aspect aspect) {
    if (aspect == Aspect::Caption) label_->setText(ToQt(As<Label>().Caption()));
}

void LabelBinder::AddWidgetState(nlohmann::json& state) const { state["caption"] = FromQt(label_->text()); }

void LabelBinder::MousePressed() {
    if (auto* label = Live<Label>()) label->Click();
}

template <class Button>
ButtonBinder<Button>::ButtonBinder(Button& button, QAbstractButton* widget) : Binder(button, widget), button_(widget) {
    connect(widget, &QAbstractButton::pressed, this, [this] {
        if (auto* live = Live<Button>()) live->MouseDown();
    });
    connect(widget, &QAbstractButton::released, this, [this] {
        if (auto* live = Live<Button>()) live->MouseUp();
    });
    connect(widget, &QAbstractButton::clicked, this, [this] {
        if (auto* live = Live<Button>()) live->Click();
    });
}

template <class Button>
void ButtonBinder<Button>::ShowAspect(Aspect aspect) {
    if (aspect == Aspect::Caption) button_->setText(ToQt(As<Button>().Caption()));
}

template <class Button>
void ButtonBinder<Button>::AddWidgetState(nlohmann::json& state) const {
    state["caption"] = FromQt(button_->text());
}

template class ButtonBinder<CommandButton>;
template class ButtonBinder<ToolButton>;

FrameBinder::FrameBinder(Frame& frame, QWidget* widget) : Binder(frame, widget) {}

void FrameBinder::ShowAspect(Aspect aspect) {
    if (aspect != Aspect::Caption) return;
    if (auto* box = qobject_cast<QGroupBox*>(Widget())) box->setTitle(ToQt(As<Frame>().Caption()));
    if (auto* page = dynamic_cast<TitledPage*>(Widget())) page->Title().setText(ToQt(As<Frame>().Caption()));
}

void FrameBinder::AddWidgetState(nlohmann::json& state) const {
    if (const auto* box = qobject_cast<const QGroupBox*>(Widget())) state["caption"] = FromQt(box->title());
    if (const auto* page = dynamic_cast<const TitledPage*>(Widget())) state["caption"] = FromQt(page->Title().text());
}

PictureBinder::PictureBinder(Picture& picture, PictureView* widget) : Binder(picture, widget) {}

void PictureBinder::ShowAspect(Aspect aspect) {
    if (aspect == Aspect::Value) Widget()->update();
}

void PictureBinder::AddWidgetState(nlohmann::json&) const {}

void PictureBinder::MousePressed() {
    if (auto* picture = Live<Picture>()) picture->Click();
}

TickBinder::TickBinder(Captioned& box, QAbstractButton* widget) : Binder(box, widget), button_(widget) {
    connect(widget, &QAbstractButton::toggled, this, [this](bool on) {
        if (auto* live = Live<Captioned>()) {
            if (live->Kind() == ControlKind::CheckBox)
                static_cast<CheckBox*>(live)->SetValue(on ? 1 : 0);
            else if (on)
                static_cast<OptionButton*>(live)->SetValue(true);
        }
    });
}

bool TickBinder::Value() const {
    return Bound()->Kind() == ControlKind::CheckBox ? As<CheckBox>().Checked() : As<OptionButton>().Value();
}

void TickBinder::ShowAspect(Aspect aspect) {
    if (aspect == Aspect::Caption) button_->setText(ToQt(As<Captioned>().Caption()));
    if (aspect == Aspect::Value) KeepTabStop();
    if (aspect != Aspect::Value || button_->isChecked() == Value()) return;
    const bool exclusive = button_->autoExclusive();
    button_->setAutoExclusive(false);  // else the last one of a group can't be cleared
    button_->setChecked(Value());
    button_->setAutoExclusive(exclusive);
}

// The chosen button is the one of its group that Tab leads to. Qt sees to that only once one of them has had the focus.
void TickBinder::KeepTabStop() {
    if (qobject_cast<QRadioButton*>(button_) == nullptr || !Value()) return;
    const auto group = button_->parentWidget()->findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly);
    for (QRadioButton* other : group) other->setFocusPolicy(other == button_ ? Qt::StrongFocus : Qt::ClickFocus);
}

void TickBinder::AddWidgetState(nlohmann::json& state) const {
    state["caption"] = FromQt(button_->text());
    if (Bound()->Kind() == ControlKind::CheckBox)
        state["value"] = button_->isChecked() ? 1 : 0;
    else
        state["value"] = button_->isChecked();
}

ProgressBinder::ProgressBinder(ProgressBar& bar, QProgressBar* widget) : Binder(bar, widget), bar_(widget) {
    bar_->setTextVisible(false);
}

// A bar without a range would show that it doesn't know where it stands; ours stands at its beginning.
void ProgressBinder::ShowAspect(Aspect aspect) {
    if (aspect != Aspect::Range && aspect != Aspect::Value) return;
    const auto& bar = As<ProgressBar>();
    constexpr long kWidest = std::numeric_limits<int>::max();
    const bool empty = bar.Max() <= bar.Min();
    const long scale = std::max(1L, (bar.Max() - bar.Min()) / kWidest + 1);
    if (aspect == Aspect::Range) bar_->setRange(0, empty ? 1 : static_cast<int>((bar.Max() - bar.Min()) / scale));
    bar_->setValue(empty ? 0 : static_cast<int>((bar.Value() - bar.Min()) / scale));
}

void ProgressBinder::AddWidgetState(nlohmann::json& state) const {
    const auto& bar = As<ProgressBar>();
    if (bar.Min() != 0 || bar.Max() <= 0 || bar.Max() != bar_->maximum()) return;
    state["value"] = bar_->value();
}

ScrollBarBinder::ScrollBarBinder(ScrollBar& bar, QScrollBar* widget) : Binder(bar, widget), bar_(widget) {
    connect(widget, &QScrollBar::valueChanged, this, [this](int value) {
        if (auto* live = Live<ScrollBar>()) live->SetValue(Turned(*bar_, value));
    });
}

int ScrollBarBinder::Turned(const QScrollBar& bar, int value) {
    return bar.orientation() == Qt::Vertical ? bar.minimum() + bar.maximum() - value : value;
}

void ScrollBarBinder::ShowAspect(Aspect aspect) {
    const auto& bar = As<ScrollBar>();
    if (aspect == Aspect::Range) bar_->setRange(static_cast<int>(bar.Min()), static_cast<int>(bar.Max()));
    if (aspect == Aspect::Range || aspect == Aspect::Value) bar_->setValue(Turned(*bar_, static_cast<int>(bar.Value())));
}

void ScrollBarBinder::AddWidgetState(nlohmann::json& state) const {
    state["min"] = bar_->minimum();
    state["max"] = bar_->maximum();
    state["value"] = Turned(*bar_, bar_->value());
}

StatusBinder::StatusBinder(StatusBar& bar, TextLabel* widget) : Binder(bar, widget), label_(widget) {}

void StatusBinder::ShowAspect(Aspect aspect) {
    if (aspect == Aspect::Text) label_->setText(ToQt(As<StatusBar>().Text()));
}

void StatusBinder::AddWidgetState(nlohmann::json& state) const { state["text"] = FromQt(label_->text()); }

TabBinder::TabBinder(TabStrip& strip, TabBar* widget) : Binder(strip, widget), bar_(widget) {
    for (std::size_t tab = 0; tab < strip.Tabs().size(); ++tab) bar_->addTab("");
    bar_->Wished = [this](int tab) {
        if (auto* live = Live<TabStrip>()) live->ClickTab(tab + 1);
    };
}

void TabBinder::ShowAspect(Aspect aspect) {
    const auto& strip = As<TabStrip>();
    if (aspect == Aspect::Caption)
        for (std::size_t tab = 0; tab < strip.Tabs().size(); ++tab)
            bar_->setTabText(static_cast<int>(tab), ToQt(strip.Tabs()[tab]));
    if (aspect == Aspect::Value) bar_->setCurrentIndex(strip.Value() - 1);
}

void TabBinder::AddWidgetState(nlohmann::json& state) const {
    state["tabs"] = nlohmann::json::array();
    for (int tab = 0; tab < bar_->count(); ++tab) state["tabs"].push_back(FromQt(bar_->tabText(tab)));
    state["value"] = bar_->currentIndex() + 1;
}

}  // namespace qv
