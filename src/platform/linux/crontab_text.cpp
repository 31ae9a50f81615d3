#include "platform/linux/crontab_text.h"

#include <algorithm>
#include <charconv>

#include "text/basic_text.h"

namespace qv {
namespace {

constexpr std::string_view kMark = " # quorvantis-job ";

// Gives each line, its end included, to `take`.
template <class Take>
void ForEachLine(std::string_view text, Take take) {
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
        take(text.substr(0, length));
        text.remove_prefix(length);
    }
}

// The id of the job on a line; nothing for a line that is somebody else's.
std::optional<std::uint32_t> JobOf(std::string_view line) {
    if (EndsWith(line, "\n")) line.remove_suffix(1);
    const auto first = line.find_first_not_of(" \t");
    const auto mark = line.rfind(kMark);
    if (first == std::string_view::npos || line[first] == '#' || mark == std::string_view::npos) return std::nullopt;
    const std::string_view digits = line.substr(mark + kMark.size());
    std::uint32_t id = 0;
    const char* end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, id);
    if (rest != end || error != std::errc()) return std::nullopt;
    return id;
}

// The fields for the days: those of the week, or a day that never comes.
std::string DayFields(std::uint8_t daysOfWeek) {
    std::string days;
    for (int day = 0; day < 7; ++day)
        if ((daysOfWeek >> day & 1) != 0) days += (days.empty() ? "" : ",") + std::to_string(day + 1);
    return days.empty() ? "30 2 *" : "* * " + days;
}

std::string InQuotationMarks(const std::string& text) { return "'" + ReplaceAll(text, "'", "'\\''") + "'"; }

}  // namespace

std::vector<std::uint32_t> JobIds(std::string_view crontab) {
    std::vector<std::uint32_t> ids;
    ForEachLine(crontab, [&](std::string_view line) {
        if (const auto id = JobOf(line)) ids.push_back(*id);
    });
    return ids;
}

std::string WithJob(std::string_view crontab, const Job& job, const std::string& command, std::uint32_t& id) {
    const auto ids = JobIds(crontab);
    id = ids.empty() ? 1 : *std::max_element(ids.begin(), ids.end()) + 1;
    if (id == 0) return std::string(crontab);
    const std::uint32_t minutes = job.JobTime / 60000;
    std::string result(crontab);
    if (!result.empty() && result.back() != '\n') result += '\n';
    result += std::to_string(minutes % 60) + " " + std::to_string(minutes / 60) + " " + DayFields(job.DaysOfWeek) + " " + command;
    result.append(kMark).append(std::to_string(id)).append("\n");
    return result;
}

std::string WithoutJobs(std::string_view crontab, std::uint32_t lowest, std::uint32_t highest) {
    std::string result;
    ForEachLine(crontab, [&](std::string_view line) {
        const auto id = JobOf(line);
        if (!id || *id < lowest || *id > highest) result += line;
    });
    return result;
}

// Cron ends a command at a percent sign that has no backslash before it; the backslash doesn't reach the shell.
std::optional<std::string> CronCommand(const std::string& variable, const std::string& value, const std::string& program) {
    const std::string command = variable + "=" + InQuotationMarks(value) + " " + InQuotationMarks(program);
    if (command.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos) return std::nullopt;
    return ReplaceAll(command, "%", "\\%");
}

}  // namespace qv
