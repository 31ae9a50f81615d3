// What the wizard and the preferences share in bringing a record's fields onto a form and back.
#pragma once

#include <cstdint>
#include <string>

#include "controls/combo_box.h"
#include "controls/simple_controls.h"
#include "controls/text_box.h"
#include "sitedb/site_record.h"

namespace qv {

// The value of a time-out field, seconds: rounded, and a minute where that is below five.
std::int16_t TimeoutOf(const std::string& text);

// The texts that make a document ignored, as items; the first becomes current.
void ShowIgnoreTexts(const SiteRecord& record, ComboBox& texts);
void StoreIgnoreTexts(const ComboBox& texts, SiteRecord& record);

// Adds the text of the box as an item and empties the box. False when there are as many as a record can hold; a blank text adds
// nothing.
bool AddItemOfText(ComboBox& texts, int most);
// Removes the first item that equals the box's text and makes the first of the others current. False when there is none.
bool RemoveItemOfText(ComboBox& texts);

// A group of the authorization page: a box, and two fields that are needed when it is on.
struct LogInGroup {
    CheckBox& box;
    NumberField flag;
    TextBox& first;
    TextField firstField;
    TextBox& second;
    TextField secondField;
    bool secondIsNumber = false;  // of 1 at least
};
// Stores the flag and, when the box is on, the fields. Gives the field that is missing, and stores nothing then; else null.
Control* StoreLogIn(const LogInGroup& group, SiteRecord& record);

void EnableAll(std::initializer_list<Control*> controls, bool enabled);

}  // namespace qv
