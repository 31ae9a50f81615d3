// The line files of the Enterprise check, and what its lists show of an entry. Pure, but for the two that read and write.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "session/settings.h"
#include "sitedb/site_record.h"

namespace qv {

// batchlst.zdt: the count and the record numbers.
std::string ComposeEnterpriseList(const std::vector<std::string>& list);
std::vector<std::string> ParseEnterpriseList(std::string_view bytes);

// nwautogo.zdt and newencfg.zdt: five values and so many empty lines. Parsing leaves the values whose lines aren't there.
inline constexpr int kEmptyLinesOfAutoStart = 6;
inline constexpr int kEmptyLinesOfSettings = 5;
std::string ComposeEnterpriseSettings(const Settings& settings, int emptyLines);
void ParseEnterpriseSettings(std::string_view bytes, Settings& settings);

// At the program's start: newencfg.zdt, or its defaults where it is missing.
void ReadEnterpriseSettings(const Files& files, const std::string& appPath, Settings& settings);

// "Internet Site: http://h/", "Local Document: http://h/a.htm".
std::string EntryLine(const SiteRecord& record);
// Whether the record of this number is among the elements.
bool IsListed(const std::vector<std::string>& list, std::int32_t number);

// The lines of a list's elements, in order. An element that names no record gives that of an empty one.
std::vector<std::string> EntryLines(const std::vector<std::string>& list, const std::vector<SiteRecord>& records);

}  // namespace qv
