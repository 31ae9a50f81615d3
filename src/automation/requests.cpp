#include "automation/requests.h"

#include <nlohmann/json.hpp>

#include "automation/state_json.h"
#include "controls/combo_box.h"
#include "controls/list_box.h"
#include "controls/menu.h"
#include "controls/simple_controls.h"
#include "text/characters.h"

namespace qv {
namespace {

using nlohmann::json;

json Refusal(const std::string& error) { return {{"ok", false}, {"error", error}}; }
json Done() { return {{"ok", true}}; }

bool IsEntry(const Control& control) {
    return control.Kind() == ControlKind::Menu && static_cast<const Menu&>(control).ParentMenu() != nullptr;
}

bool IsList(const Control& control) { return control.Kind() == ControlKind::ListBox || control.Kind() == ControlKind::ComboBox; }

int RowCount(const Control& control) {
    return control.Kind() == ControlKind::ComboBox ? static_cast<const ComboBox&>(control).Count()
                                                   : static_cast<const ListBox&>(control).Count();
}

// Verbs that need a control that can be used; the others are carried out on any loaded form.
bool NeedsUsable(const std::string& verb) {
    for (const char* name : {"click", "set", "select", "doubleclick", "rightclick", "key", "press", "menu", "focus"})
        if (verb == name) return true;
    return false;
}

bool IsKnown(const std::string& verb) {
    for (const char* name : {"get", "release", "hover", "close", "activate"})
        if (verb == name) return true;
    return NeedsUsable(verb);
}

}  // namespace

Requests::Target Requests::Find(const json& request) const {
    Target target;
    const auto at = request.find("at");
    if (at == request.end() || !at->is_string()) {
        target.error = "no \"at\"";
        return target;
    }
    const std::string address = at->get<std::string>();
    const auto dot = address.find('.');
    target.form = windows_.FindForm(address.substr(0, dot));
    if (target.form == nullptr) {
        target.error = "no such form";
        return target;
    }
    target.control = dot == std::string::npos ? target.form : target.form->Find(address.substr(dot + 1));
    if (target.control == nullptr) target.error = "no such control";
    return target;
}

std::string Requests::Obstacle(const Target& target, const std::string& verb) const {
    const std::string blocker = windows_.BlockedBy(*target.form);
    const bool looksOnly = verb == "hover";
    if (!looksOnly && !NeedsUsable(verb)) return "";
    if (!blocker.empty()) return "blocked by " + blocker;
    return (looksOnly ? target.control->Showing() : target.control->Usable()) ? "" : "not usable";
}

json Requests::Serve(const json& request) {
    if (!request.is_object()) return Refusal("a request is an object");
    const auto verb = request.find("do");
    if (verb == request.end() || !verb->is_string()) return Refusal("no \"do\"");
    return ServeVerb(verb->get<std::string>(), request);
}

json Requests::ServeVerb(const std::string& verb, const json& request) {
    if (verb == "ping") return Done();
    if (verb == "forms") return Forms();
    if (verb == "answer") return Answer(request);
    if (verb == "clipboard") return Clipboard(request);
    if (!IsKnown(verb)) return Refusal("no such verb");
    return ServeTarget(verb, request);
}

json Requests::ServeTarget(const std::string& verb, const json& request) {
    Target target = Find(request);
    if (!target.error.empty()) return Refusal(target.error);
    // An entry is judged as its open menu shows it.
    if (verb == "click" && IsEntry(*target.control) && windows_.BlockedBy(*target.form).empty()) {
        Control& above = *target.control->Container();
        if (!above.Usable()) return Refusal("not usable");
        driver_.OpenMenu(above);
    }
    const std::string obstacle = Obstacle(target, verb);
    if (!obstacle.empty()) {
        driver_.CloseMenus();
        return Refusal(obstacle);
    }
    return Act(verb, target, request);
}

json Requests::Act(const std::string& verb, Target& target, const json& request) {
    Control& control = *target.control;
    if (verb == "get") return {{"ok", true}, {"state", driver_.State(control)}};
    if (verb == "set") return Set(control, request);
    if (verb == "select" || verb == "doubleclick" || verb == "rightclick") return OnRow(verb, control, request);
    if (verb == "key") return PressKey(control, request);
    if (verb == "menu") return ShowMenu(control);
    if (verb == "close" || verb == "activate") {
        if (target.control != target.form) return Refusal("not a form");
        return ActOnForm(verb, *target.form);
    }
    if (verb == "click") driver_.Click(control);
    if (verb == "press") driver_.MouseDown(control);
    if (verb == "release") driver_.MouseUp(control);
    if (verb == "hover") driver_.Hover(control);
    if (verb == "focus") driver_.Focus(control);
    return Done();
}

json Requests::ActOnForm(const std::string& verb, Form& form) {
    const std::string blocker = windows_.BlockedBy(form);
    if (!blocker.empty()) return Refusal("blocked by " + blocker);
    if (verb == "close")
        driver_.CloseForm(form);
    else
        driver_.ActivateForm(form);
    return Done();
}

json Requests::Set(Control& control, const json& request) {
    const auto value = request.find("value");
    if (value == request.end()) return Refusal("no \"value\"");
    switch (control.Kind()) {
        case ControlKind::TextBox:
        case ControlKind::ComboBox:
            if (!value->is_string()) return Refusal("the value is no text");
            driver_.EnterText(control, value->get<std::string>());
            return Done();
        case ControlKind::OptionButton:
            if (!value->is_boolean() || !value->get<bool>()) return Refusal("an option can only be chosen");
            driver_.SetValue(control, 1);
            return Done();
        case ControlKind::CheckBox:
            if (!value->is_number_integer() || (*value != 0 && *value != 1)) return Refusal("the value is neither 0 nor 1");
            driver_.SetValue(control, value->get<long>());
            return Done();
        case ControlKind::TabStrip:
            if (!value->is_number_integer() || *value < 1 ||
                *value > static_cast<long>(static_cast<TabStrip&>(control).Tabs().size()))
                return Refusal("no such tab");
            driver_.SetValue(control, value->get<long>());
            return Done();
        case ControlKind::ScrollBar:
            if (!value->is_number_integer()) return Refusal("the value is no number");
            driver_.SetValue(control, value->get<long>());
            return Done();
        default: return Refusal("this control can't be set");
    }
}

json Requests::OnRow(const std::string& verb, Control& control, const json& request) {
    const auto row = request.find("row");
    if (!IsList(control)) return Refusal("not a list");
    if (row == request.end() || !row->is_number_integer() || *row < 0 || *row >= RowCount(control)) return Refusal("no such row");
    const int number = row->get<int>();
    if (verb == "select") driver_.ClickRow(control, number);
    if (verb == "doubleclick") driver_.DoubleClickRow(control, number);
    if (verb != "rightclick") return Done();
    popUp_.clear();
    driver_.RightClickRow(control, number);
    return {{"ok", true}, {"menu", popUp_.empty() ? json(nullptr) : json(popUp_)}};
}

json Requests::PressKey(Control& control, const json& request) {
    static const std::pair<const char*, Key> kKeys[] = {
        {"Space", Key::Space}, {"Enter", Key::Enter}, {"Delete", Key::Delete}, {"Escape", Key::Escape}};
    const auto name = request.find("key");
    for (const auto& [text, key] : kKeys) {
        if (name == request.end() || *name != text) continue;
        driver_.Press(control, key);
        return Done();
    }
    return Refusal("no such key");
}

json Requests::ShowMenu(Control& control) {
    if (control.Kind() != ControlKind::Menu) return Refusal("not a menu");
    driver_.OpenMenu(control);
    json entries = driver_.Entries(static_cast<Menu&>(control));
    driver_.CloseMenus();
    return {{"ok", true}, {"entries", std::move(entries)}};
}

json Requests::Answer(const json& request) {
    const auto value = request.find("value");
    if (value == request.end() || !(value->is_string() || value->is_null())) return Refusal("no \"value\"");
    const auto answer = value->is_null() ? std::nullopt : std::optional<std::string>(value->get<std::string>());
    switch (windows_.CanAnswer(answer)) {
        case WindowSystem::AnswerResult::NothingToAnswer: return Refusal("nothing to answer");
        case WindowSystem::AnswerResult::NoSuchButton: return Refusal("no such button");
        case WindowSystem::AnswerResult::Done: driver_.Answer(windows_, answer);
    }
    return Done();
}

json Requests::Forms() const {
    json forms = json::array();
    for (const Form* form : windows_.Forms())
        forms.push_back({{"name", form->Name()},
                         {"caption", AsUtf8(form->Caption())},
                         {"modal", form->Modal()},
                         {"visible", form->Visible()},
                         {"minimised", form->State() == WindowState::Minimised}});
    return {{"ok", true}, {"forms", forms}};
}

json Requests::Clipboard(const json& request) {
    const auto value = request.find("value");
    if (value != request.end() && !value->is_string()) return Refusal("the value is no text");
    if (value != request.end()) windows_.SetClipboard(value->get<std::string>());
    return {{"ok", true}, {"text", AsUtf8(windows_.Clipboard())}};
}

}  // namespace qv
