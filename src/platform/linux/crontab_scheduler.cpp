#include "platform/linux/crontab_scheduler.h"

#include <unistd.h>

#include <array>
#include <optional>

#include "platform/files.h"
#include "platform/linux/crontab_text.h"
#include "platform/linux/processes.h"
#include "text/basic_text.h"

namespace qv {
namespace {

constexpr JobScheduler::Status kFailed = 1;

// In English, and without the header that cron puts before a crontab.
Finished RunCrontab(const std::string& program, const char* argument, std::string_view input) {
    return RunToEnd(program, {argument}, input, {"LC_ALL=C", "CRONTAB_NOHEADER=Y"});
}

// The crontab; a user who has none has an empty one. Nothing when it can't be read.
std::optional<std::string> ReadCrontab() {
    const std::string program = FindInPath("crontab");
    if (program.empty()) return std::nullopt;
    const Finished listed = RunCrontab(program, "-l", "");
    if (!listed.ended) return std::nullopt;
    if (listed.code == 0) return listed.output;
    if (listed.output.empty() && Contains(Lower(listed.errors), "no crontab for")) return "";
    return std::nullopt;
}

bool WriteCrontab(const std::string& text) {
    const Finished stored = RunCrontab(FindInPath("crontab"), "-", text);
    return stored.ended && stored.code == 0;
}

}  // namespace

std::string CrontabScheduler::ComputerName() const {
    std::array<char, 200> name{};
    if (gethostname(name.data(), name.size() - 1) != 0) return "";
    return name.data();
}

JobScheduler::Status CrontabScheduler::Add(const std::string&, const Job& job, std::uint32_t& id) {
    const auto command = CronCommand("QUORVANTIS_HOME", NativePath(dataFolder_), ProgramFolder() + "autocheck");
    const auto crontab = ReadCrontab();
    std::uint32_t next = 0;
    if (!command || !crontab) return kFailed;
    const std::string grown = WithJob(*crontab, job, *command, next);
    if (next == 0 || !WriteCrontab(grown)) return kFailed;
    id = next;
    return kSuccess;
}

JobScheduler::Status CrontabScheduler::Delete(const std::string&, std::uint32_t lowest, std::uint32_t highest) {
    const auto crontab = ReadCrontab();
    if (!crontab) return kFailed;
    const std::string rest = WithoutJobs(*crontab, lowest, highest);
    return rest == *crontab || WriteCrontab(rest) ? kSuccess : kFailed;
}

JobScheduler::Status CrontabScheduler::Enumerate(const std::string&, std::vector<std::uint32_t>& ids, std::uint32_t&) {
    const auto crontab = ReadCrontab();
    if (!crontab) return kFailed;
    const auto found = JobIds(*crontab);
    ids.insert(ids.end(), found.begin(), found.end());
    return kSuccess;
}

}  // namespace qv
