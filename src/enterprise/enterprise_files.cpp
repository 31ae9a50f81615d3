#include "enterprise/enterprise_files.h"

#include <algorithm>
#include <array>

#include "text/lines.h"
#include "text/numbers.h"

namespace qv {
namespace {

// In the order of their lines; the folder follows.
constexpr std::array<Flag EnterpriseSettings::*, 4> kFlags = {&EnterpriseSettings::MakeEventLog, &EnterpriseSettings::EmailLogs,
                                                              &EnterpriseSettings::ExitWhenComplete,
                                                              &EnterpriseSettings::MakeHtmlLog};

}  // namespace

std::string ComposeEnterpriseList(const std::vector<std::string>& list) {
    LineWriter writer;
    writer.Line(std::to_string(list.size()));
    for (const auto& number : list) writer.Line(number);
    return writer.Bytes();
}

std::vector<std::string> ParseEnterpriseList(std::string_view bytes) {
    std::vector<std::string> list;
    LineReader reader(bytes);
    const std::int32_t count = LeadingInt32(reader.Next()).value_or(0);
    for (std::int32_t i = 0; i < count && !reader.AtEnd(); ++i) list.emplace_back(reader.Next());
    return list;
}

std::string ComposeEnterpriseSettings(const Settings& settings, int emptyLines) {
    LineWriter writer;
    for (const auto flag : kFlags) writer.Line(PrintForm(settings.*flag));
    writer.Line(settings.LogFolder);
    for (int i = 0; i < emptyLines; ++i) writer.Line("");
    return writer.Bytes();
}

void ParseEnterpriseSettings(std::string_view bytes, Settings& settings) {
    LineReader reader(bytes);
    for (const auto flag : kFlags)
        if (!reader.AtEnd()) settings.*flag = LeadingInt16(reader.Next()).value_or(0);
    if (!reader.AtEnd()) settings.LogFolder = std::string(reader.Next());
}

void ReadEnterpriseSettings(const Files& files, const std::string& appPath, Settings& settings) {
    std::string bytes;
    if (files.Read(appPath + "newencfg.zdt", bytes)) {
        ParseEnterpriseSettings(bytes, settings);
        return;
    }
    settings.LogFolder = appPath + "Logs\\";
    settings.MakeHtmlLog = kSet;
    settings.MakeEventLog = settings.EmailLogs = kClear;
}

std::string EntryLine(const SiteRecord& record) {
    const std::string mode = record.Number(field::EntryMode) == kLocalMode ? "Local " : "Internet ";
    if (record.IsSet(field::EntryIsSite)) return mode + "Site: " + record.SiteUrl();
    return mode + "Document: " + record.SiteUrl() + record.SiteFileName();
}

bool IsListed(const std::vector<std::string>& list, std::int32_t number) {
    return std::any_of(list.begin(), list.end(), [&](const std::string& element) { return LeadingInt32(element) == number; });
}

std::vector<std::string> EntryLines(const std::vector<std::string>& list, const std::vector<SiteRecord>& records) {
    std::vector<std::string> lines;
    for (const auto& element : list) {
        const auto number = static_cast<std::size_t>(LeadingInt16(element).value_or(0));
        lines.push_back(EntryLine(number >= 1 && number <= records.size() ? records[number - 1] : SiteRecord()));
    }
    return lines;
}

}  // namespace qv
