#include "controls/simple_controls.h"

#include <algorithm>

#include "controls/form.h"

namespace qv {

void Captioned::SetCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    Changed(Aspect::Caption);
}

Label::Label(Form& form, std::string name, std::string caption, Control* container, int index)
    : Captioned(form, std::move(name), ControlKind::Label, container, index) {
    SetCaption(std::move(caption));
}

CommandButton::CommandButton(Form& form, std::string name, std::string caption, Control* container, int index)
    : Captioned(form, std::move(name), ControlKind::CommandButton, container, index) {
    SetCaption(std::move(caption));
}

ToolButton::ToolButton(Form& form, std::string name, Control* container)
    : Captioned(form, std::move(name), ControlKind::ToolButton, container) {}

Frame::Frame(Form& form, std::string name, std::string caption, Control* container, int index)
    : Captioned(form, std::move(name), ControlKind::Frame, container, index) {
    SetCaption(std::move(caption));
}

Picture::Picture(Form& form, std::string name, Control* container)
    : Captioned(form, std::move(name), ControlKind::Picture, container) {}

void Picture::SetPixelWidth(int pixels) { pixelWidth_ = pixels; }

void Picture::DrawRunner(int left, int width) {
    runnerLeft_ = left;
    runnerWidth_ = width;
    Changed(Aspect::Value);
}

void Picture::SetFill(int colour) {
    if (fill_ == colour) return;
    fill_ = colour;
    Changed(Aspect::Value);
}

CheckBox::CheckBox(Form& form, std::string name, std::string caption, Control* container, int index)
    : Captioned(form, std::move(name), ControlKind::CheckBox, container, index) {
    SetCaption(std::move(caption));
}

void CheckBox::SetValue(int value) {
    const int state = value != 0 ? 1 : 0;
    if (value_ == state) return;
    value_ = state;
    Changed(Aspect::Value);
    Click();
}

OptionButton::OptionButton(Form& form, std::string name, std::string caption, Control* container, int index)
    : Captioned(form, std::move(name), ControlKind::OptionButton, container, index) {
    SetCaption(std::move(caption));
}

void OptionButton::SetValue(bool value) {
    if (value_ == value) return;
    if (value) {
        for (Control* other : ParentForm().Controls()) {
            auto* option = dynamic_cast<OptionButton*>(other);
            if (option != nullptr && option != this && option->Container() == Container()) option->SetValue(false);
        }
    }
    value_ = value;
    Changed(Aspect::Value);
    if (value) Click();
}

ProgressBar::ProgressBar(Form& form, std::string name, Control* container)
    : Control(form, std::move(name), ControlKind::ProgressBar, container) {}

void ProgressBar::SetRange(long min, long max) {
    min_ = min;
    max_ = max;
    value_ = std::max(min_, std::min(value_, std::max(min_, max_)));
    Changed(Aspect::Range);
}

void ProgressBar::SetValue(long value) {
    const long held = std::max(min_, std::min(value, std::max(min_, max_)));
    if (value_ == held) return;
    value_ = held;
    Changed(Aspect::Value);
}

ScrollBar::ScrollBar(Form& form, std::string name, Control* container)
    : Control(form, std::move(name), ControlKind::ScrollBar, container) {}

void ScrollBar::SetRange(long min, long max) {
    min_ = min;
    max_ = max;
    Changed(Aspect::Range);
    SetValue(value_);
}

void ScrollBar::SetValue(long value) {
    const long held = std::max(min_, std::min(value, std::max(min_, max_)));
    if (value_ == held) return;
    value_ = held;
    Changed(Aspect::Value);
    Change();
}

StatusBar::StatusBar(Form& form, std::string name) : Control(form, std::move(name), ControlKind::StatusBar) {}

void StatusBar::SetText(std::string text) {
    if (text_ == text) return;
    text_ = std::move(text);
    Changed(Aspect::Text);
}

TabStrip::TabStrip(Form& form, std::string name, std::vector<std::string> tabs)
    : Control(form, std::move(name), ControlKind::TabStrip), tabs_(std::move(tabs)) {}

void TabStrip::SetTab(int tab, std::string caption) {
    if (tab < 1 || tab > static_cast<int>(tabs_.size())) return;
    tabs_[static_cast<std::size_t>(tab) - 1] = std::move(caption);
    Changed(Aspect::Caption);
}

void TabStrip::SetValue(int tab) {
    if (tab < 1 || tab > static_cast<int>(tabs_.size()) || tab == value_) return;
    value_ = tab;
    Changed(Aspect::Value);
}

void TabStrip::ClickTab(int tab) {
    if (tab < 1 || tab > static_cast<int>(tabs_.size())) return;
    bool refused = false;
    BeforeClick(refused);
    if (refused) {
        Changed(Aspect::Value);  // a view that moved on comes back
        return;
    }
    SetValue(tab);
    Click();
}

Timer::Timer(Form& form, std::string name) : Control(form, std::move(name), ControlKind::Timer) { SetEnabled(false); }

Timer::~Timer() {
    if (service_ != nullptr) service_->TimerGone(*this);
}

void Timer::SetInterval(long milliseconds) {
    interval_ = milliseconds;
    if (service_ != nullptr) service_->TimerChanged(*this);
}

void Timer::SetRunning(bool running) {
    SetEnabled(running);
    if (service_ != nullptr) service_->TimerChanged(*this);
}

void Timer::Use(TimerService* service) { service_ = service; }

}  // namespace qv
