// reprtcfg.zdt: what the dialog of the reports chose last.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"
#include "session/settings.h"

namespace qv {

// The bytes of the file: seven lines, the flags in print form. Parsing leaves the values whose lines aren't there.
std::string ComposeReportOptions(const Settings& settings);
void ParseReportOptions(std::string_view bytes, Settings& settings);

// False, and nothing changed, when there is no such file. A failing write is passed over.
bool ReadReportOptions(const Files& files, const std::string& appPath, Settings& settings);
void WriteReportOptions(Files& files, const std::string& appPath, const Settings& settings);

}  // namespace qv
