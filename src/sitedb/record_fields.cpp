#include "sitedb/record_fields.h"

#include "session/flags.h"
#include "text/basic_text.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr std::int16_t kLeastTimeout = 5;

}  // namespace

std::int16_t TimeoutOf(const std::string& text) {
    const std::int16_t value = RoundToInt16(LeadingNumber(Trim(text)));
    return value < kLeastTimeout ? kDefaultTimeout : value;
}

void ShowIgnoreTexts(const SiteRecord& record, ComboBox& texts) {
    texts.Clear();
    for (std::size_t slot = 1; slot <= kIgnoreTextSlots; ++slot) {
        const std::string text = record.Text(field::IgnoreText(slot));
        if (!text.empty()) texts.AddItem(text);
    }
    if (texts.Count() > 0) texts.SetListIndex(0);
}

void StoreIgnoreTexts(const ComboBox& texts, SiteRecord& record) {
    for (std::size_t slot = 1; slot <= kIgnoreTextSlots; ++slot)
        record.SetText(field::IgnoreText(slot), texts.ItemText(static_cast<int>(slot) - 1));
}

bool AddItemOfText(ComboBox& texts, int most) {
    const std::string text = texts.Text();
    if (Trim(text).empty()) return true;
    if (texts.Count() >= most) return false;
    texts.AddItem(text);
    texts.SetText("");
    return true;
}

bool RemoveItemOfText(ComboBox& texts) {
    int item = 0;
    while (item < texts.Count() && texts.ItemText(item) != texts.Text()) ++item;
    if (item == texts.Count()) return false;
    texts.RemoveItem(item);
    if (texts.Count() > 0)
        texts.SetListIndex(0);
    else
        texts.SetText("");
    return true;
}

Control* StoreLogIn(const LogInGroup& group, SiteRecord& record) {
    if (!group.box.Checked()) {
        record.SetNumber(group.flag, kClear);
        return nullptr;
    }
    const std::string one(Trim(group.first.Text()));
    const std::string two(Trim(group.second.Text()));
    if (one.empty()) return &group.first;
    if (group.secondIsNumber ? LeadingNumber(two) < 1 : two.empty()) return &group.second;
    record.SetNumber(group.flag, kSet);
    record.SetText(group.firstField, one);
    record.SetText(group.secondField, two);
    return nullptr;
}

void EnableAll(std::initializer_list<Control*> controls, bool enabled) {
    for (Control* control : controls) control->SetEnabled(enabled);
}

}  // namespace qv
