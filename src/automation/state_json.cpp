#include "automation/state_json.h"

#include <nlohmann/json.hpp>

#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "text/characters.h"

namespace qv {
namespace {

using nlohmann::json;

template <class T>
const T& As(const Control& control) {
    return static_cast<const T&>(control);
}

void AddForm(json& state, const Form& form) {
    static constexpr const char* kStates[] = {"normal", "minimised", "maximised"};
    state["caption"] = AsUtf8(form.Caption());
    state["modal"] = form.Modal();
    state["state"] = kStates[static_cast<int>(form.State())];
    const Geometry& place = form.Place();
    state["left"] = place.left;
    state["top"] = place.top;
    state["width"] = place.width;
    state["height"] = place.height;
    state["pointer"] = form.Pointer() == Pointer::Wait ? "wait" : "default";
    state["focus"] = form.Focus() == nullptr ? json(nullptr) : json(form.Focus()->AddressName());
}

json ItemOf(const std::string& text, std::int32_t data, bool selected) {
    return {{"text", AsUtf8(text)}, {"data", data}, {"selected", selected}};
}

void AddList(json& state, const ListBox& list) {
    json items = json::array();
    for (int row = 0; row < list.Count(); ++row) items.push_back(ItemOf(list.Text(row), list.ItemData(row), list.Selected(row)));
    state["items"] = std::move(items);
    state["index"] = list.ListIndex();
}

void AddCombo(json& state, const ComboBox& combo) {
    json items = json::array();
    for (int item = 0; item < combo.Count(); ++item)
        items.push_back(ItemOf(combo.ItemText(item), combo.ItemData(item), item == combo.ListIndex()));
    state["items"] = std::move(items);
    state["index"] = combo.ListIndex();
    state["text"] = AsUtf8(combo.Text());
}

template <class Bar>
void AddRange(json& state, const Bar& bar) {
    state["min"] = bar.Min();
    state["max"] = bar.Max();
    state["value"] = bar.Value();
}

void AddTabs(json& state, const TabStrip& strip) {
    state["tabs"] = json::array();
    for (const auto& tab : strip.Tabs()) state["tabs"].push_back(AsUtf8(tab));
    state["value"] = strip.Value();
}

}  // namespace

json StateOf(const Control& control) {
    json state = {{"name", control.AddressName()}, {"kind", KindName(control.Kind())}, {"enabled", control.Enabled()},
                  {"visible", control.Visible()},  {"usable", control.Usable()},       {"tip", AsUtf8(control.Tip())}};
    if (const auto* captioned = dynamic_cast<const Captioned*>(&control)) state["caption"] = AsUtf8(captioned->Caption());
    switch (control.Kind()) {
        case ControlKind::Form: AddForm(state, As<Form>(control)); break;
        case ControlKind::Menu: state["checked"] = As<Menu>(control).Checked(); break;
        case ControlKind::TextBox:
            state["text"] = AsUtf8(As<TextBox>(control).Text());
            state["selected"] = AsUtf8(As<TextBox>(control).Selected());
            break;
        case ControlKind::CheckBox: state["value"] = As<CheckBox>(control).Value(); break;
        case ControlKind::OptionButton: state["value"] = As<OptionButton>(control).Value(); break;
        case ControlKind::ListBox: AddList(state, As<ListBox>(control)); break;
        case ControlKind::ComboBox: AddCombo(state, As<ComboBox>(control)); break;
        case ControlKind::ProgressBar: AddRange(state, As<ProgressBar>(control)); break;
        case ControlKind::ScrollBar: AddRange(state, As<ScrollBar>(control)); break;
        case ControlKind::StatusBar: state["text"] = AsUtf8(As<StatusBar>(control).Text()); break;
        case ControlKind::TabStrip: AddTabs(state, As<TabStrip>(control)); break;
        case ControlKind::Timer: state["interval"] = As<Timer>(control).Interval(); break;
        default: break;
    }
    return state;
}

json EntriesOf(const Menu& menu) {
    json entries = json::array();
    for (const Menu* entry : menu.Entries()) {
        if (entry == nullptr) {
            entries.push_back({{"separator", true}});
            continue;
        }
        json told = {{"name", entry->AddressName()},
                     {"caption", AsUtf8(entry->Caption())},
                     {"enabled", entry->Enabled()},
                     {"visible", entry->Visible()},
                     {"checked", entry->Checked()}};
        if (!entry->Entries().empty()) told["entries"] = EntriesOf(*entry);
        entries.push_back(std::move(told));
    }
    return entries;
}

}  // namespace qv
