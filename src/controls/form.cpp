#include "controls/form.h"

#include <algorithm>

#include "controls/menu.h"
#include "controls/window_system.h"

namespace qv {

Form::Form(WindowSystem& windows, std::string name, std::string caption)
    : Control(FormTag{}, this, std::move(name)), windows_(windows), caption_(std::move(caption)) {
    SetVisible(false);
}

Form::~Form() { windows_.Forget(*this); }

void Form::SetCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    Changed(Aspect::Caption);
}

void Form::SetState(WindowState state) {
    if (state_ == state) return;
    state_ = state;
    Changed(Aspect::Geometry);
    Resize();
}

void Form::SetPlace(const Geometry& place) {
    place_ = place;
    Changed(Aspect::Geometry);
    Resize();
}

void Form::Centre() {
    SetPlace({(windows_.ScreenWidth() - place_.width) / 2, (windows_.ScreenHeight() - place_.height) / 2, place_.width,
              place_.height});
}

void Form::FitOnScreen() {
    constexpr int kFrameWidth = 8, kFrameHeight = 40;  // of a window manager, pixels
    SetSize(std::min(place_.width, windows_.ScreenWidth() - kFrameWidth),
            std::min(place_.height, windows_.ScreenHeight() - kFrameHeight));
}

void Form::SetPointer(qv::Pointer pointer) {
    if (pointer_ == pointer) return;
    pointer_ = pointer;
    Changed(Aspect::Pointer);
}

void Form::MoveFocus(Control* to) {
    if (focus_ == to) return;
    Control* from = focus_;
    focus_ = to;
    Changed(Aspect::Focus);
    if (from != nullptr) from->LostFocus();
    if (to != nullptr && focus_ == to) to->GotFocus();
}

void Form::FocusFirst() {
    const auto first = std::find_if(controls_.begin(), controls_.end(), [](Control* c) { return c->CanFocus() && c->Usable(); });
    MoveFocus(first == controls_.end() ? nullptr : *first);
}

void Form::KeepFocusUsable() {
    if (focus_ == nullptr || focus_->Usable() || !Visible()) return;
    const auto at = std::find(controls_.begin(), controls_.end(), focus_);
    const auto takes = [](Control* c) { return c->CanFocus() && c->Usable(); };
    auto next = std::find_if(at, controls_.end(), takes);
    if (next == controls_.end()) next = std::find_if(controls_.begin(), at, takes);
    MoveFocus(next == controls_.end() || (next == at && !takes(*at)) ? nullptr : *next);
}

Control* Form::Find(std::string_view addressName) const {
    const auto found =
        std::find_if(controls_.begin(), controls_.end(), [&](const Control* c) { return c->AddressName() == addressName; });
    return found == controls_.end() ? nullptr : *found;
}

void Form::PopUp(Menu& menu) {
    menu.Click();
    windows_.MenuPoppedUp(menu);
}

void Form::Close() { windows_.Unload(*this); }

}  // namespace qv
