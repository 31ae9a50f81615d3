#include "controls/window_system.h"

#include <algorithm>

#include "controls/form.h"

namespace qv {

bool WindowSystem::LoadForm(Form& form, bool modal) {
    if (!form.loaded_) {
        form.loaded_ = true;
        form.modal_ = modal;
        forms_.push_back(&form);
        form.Load();
    }
    return form.loaded_;
}

void WindowSystem::Show(Form& form) {
    if (!LoadForm(form, false)) return;
    if (!form.Visible()) {
        form.SetVisible(true);
        Announce(form);
    }
    Activate(form);
}

void WindowSystem::Announce(Form& form) {
    if (form.Focus() == nullptr) form.FocusFirst();
    form.announced_ = true;
    for (auto* listener : listeners_) listener->FormShown(form);
}

void WindowSystem::ShowModal(Form& form) {
    if (!LoadForm(form, true)) return;
    form.SetVisible(true);
    Announce(form);
    if (form.loaded_) Activate(form);
    while (form.loaded_) wait_();
}

bool WindowSystem::Unload(Form& form) {
    if (!form.loaded_) return true;
    bool refused = false;
    form.Unload(refused);
    if (refused) return false;
    if (!form.loaded_) return true;  // the handler did it already
    const bool wasShown = form.announced_;
    form.loaded_ = form.announced_ = false;
    std::erase(forms_, &form);
    form.SetVisible(false);
    if (wasShown)
        for (auto* listener : listeners_) listener->FormClosed(form);
    form.modal_ = false;
    return true;
}

void WindowSystem::Activate(Form& form) {
    const auto at = std::find(forms_.begin(), forms_.end(), &form);
    if (at == forms_.end()) return;
    const bool raised = BlockedBy(form).empty();
    if (raised) std::rotate(at, at + 1, forms_.end());
    for (auto* listener : listeners_) listener->FormActivated(form);
    form.Activate();
}

void WindowSystem::Hide(Form& form) { form.SetVisible(false); }

std::vector<Form*> WindowSystem::Forms() const { return {forms_.rbegin(), forms_.rend()}; }

Form* WindowSystem::FindForm(std::string_view name) const {
    const auto found = std::find_if(forms_.begin(), forms_.end(), [&](const Form* f) { return f->Name() == name; });
    return found == forms_.end() ? nullptr : *found;
}

std::string WindowSystem::BlockedBy(const Form& form) const {
    if (!prompts_.empty()) return "MessageBox";
    for (auto at = forms_.rbegin(); at != forms_.rend() && *at != &form; ++at)
        if ((*at)->modal_ && (*at)->Visible()) return (*at)->Name();
    return "";
}

std::string WindowSystem::ShowMessage(const MessageRequest& request) {
    if (request.buttons.size() == 1 && TakeNotice && TakeNotice(request.text)) return request.defaultButton;
    Prompt prompt;
    prompt.message = &request;
    prompts_.push_back(&prompt);
    for (auto* listener : listeners_) listener->MessageShown(request);
    WaitFor(prompt);
    return prompt.answer.value_or("");
}

std::optional<std::string> WindowSystem::ShowFileDialog(const FileDialogRequest& request) {
    Prompt prompt;
    prompt.dialog = &request;
    prompts_.push_back(&prompt);
    for (auto* listener : listeners_) listener->DialogShown(request);
    WaitFor(prompt);
    if (prompt.answer) std::replace(prompt.answer->begin(), prompt.answer->end(), '/', '\\');
    return prompt.answer;
}

void WindowSystem::WaitFor(Prompt& prompt) {
    while (!prompt.answered) wait_();
    std::erase(prompts_, &prompt);
    for (auto* listener : listeners_) listener->PromptClosed();
}

WindowSystem::AnswerResult WindowSystem::CanAnswer(const std::optional<std::string>& value) const {
    if (prompts_.empty() || prompts_.back()->answered) return AnswerResult::NothingToAnswer;
    const MessageRequest* message = prompts_.back()->message;
    if (message == nullptr) return AnswerResult::Done;
    const auto& buttons = message->buttons;
    const bool known = value && std::find(buttons.begin(), buttons.end(), *value) != buttons.end();
    return known ? AnswerResult::Done : AnswerResult::NoSuchButton;
}

WindowSystem::AnswerResult WindowSystem::Answer(const std::optional<std::string>& value) {
    const AnswerResult result = CanAnswer(value);
    if (result != AnswerResult::Done) return result;
    prompts_.back()->answer = value;
    prompts_.back()->answered = true;
    return AnswerResult::Done;
}

const MessageRequest* WindowSystem::TopMessage() const { return prompts_.empty() ? nullptr : prompts_.back()->message; }

void WindowSystem::SetClipboard(std::string text) {
    clipboard_ = std::move(text);
    if (ClipboardChanged) ClipboardChanged(clipboard_);
}

void WindowSystem::Beep() {
    for (auto* listener : listeners_) listener->Beeped();
}

void WindowSystem::MenuPoppedUp(Menu& menu) {
    for (auto* listener : listeners_) listener->MenuPoppedUp(menu);
}

void WindowSystem::Forget(Form& form) {
    form.loaded_ = false;
    std::erase(forms_, &form);
}

}  // namespace qv
