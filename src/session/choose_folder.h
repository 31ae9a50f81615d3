// A folder picker: an open dialog for the name "*.".
#pragma once

#include <optional>
#include <string>

#include "controls/window_system.h"
#include "platform/files.h"

namespace qv {

// Gives the chosen folder up to and including its last backslash; an answer that names an existing folder counts as chosen inside
// it. Nothing when the dialog was cancelled.
std::optional<std::string> ChooseFolder(WindowSystem& windows, const Files& files, const std::string& title,
                                        const std::string& filter, const std::string& startFolder);

// The same rule for an answer that is there already.
std::string ChosenFolder(const Files& files, std::string answer);

}  // namespace qv
