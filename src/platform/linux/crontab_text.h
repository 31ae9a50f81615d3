// A user's crontab as text, and the program's jobs in it: a line each, marked at its end. All other lines stay as they are.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/job_scheduler.h"

namespace qv {

// The ids of the jobs, in the order of their lines. A line that is commented out is no job.
std::vector<std::uint32_t> JobIds(std::string_view crontab);

// The crontab with one more job as its last line. `command` is a shell command; `id` becomes one more than the highest there is;
// 0, and the same crontab, when there is no higher number.
std::string WithJob(std::string_view crontab, const Job& job, const std::string& command, std::uint32_t& id);

// The crontab without the jobs of these ids; the same text when there is none.
std::string WithoutJobs(std::string_view crontab, std::uint32_t lowest, std::uint32_t highest);

// A command that runs `program` with one variable set, for the shell by way of cron. Nothing for texts that no line of a crontab
// can hold: those with a line end or a NUL.
std::optional<std::string> CronCommand(const std::string& variable, const std::string& value, const std::string& program);

}  // namespace qv
