// What scripts see of a control.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "controls/control.h"
#include "controls/menu.h"

namespace qv {

nlohmann::json StateOf(const Control& control);

// A menu's entries in order, sub-menus with their own; separators as {"separator": true}.
nlohmann::json EntriesOf(const Menu& menu);

}  // namespace qv
