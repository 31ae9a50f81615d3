// The weekly job as a user sets it, its file, and the record that the system's scheduler gets. Pure.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/job_scheduler.h"

namespace qv {

inline constexpr std::array<const char*, 7> kDayCodes = {"M", "T", "W", "TH", "F", "S", "SU"};

struct Schedule {
    std::string ScheduleComputer;
    std::string ScheduleHour;                 // of a clock of 12 hours, as typed
    std::string ScheduleMinute;               // as typed
    std::string ScheduleAmPm;                 // "AM" or "PM"
    std::array<std::string, 7> ScheduleDays;  // from Monday: the day's code, or empty
    std::string ScheduleTaskName;             // "AT" and the job's id, or empty
};

// schedcfg.zdt: twelve values and nine empty lines. Parsing leaves the values whose lines aren't there.
std::string ComposeSchedule(const Schedule& schedule);
void ParseSchedule(std::string_view bytes, Schedule& schedule);

// Whether the hour lies in 1 to 12 and the minute in 0 to 59; a text that is no number counts as 0.
bool HasValidTime(const Schedule& schedule);

// A weekly job at the schedule's time on its days. The time must be valid.
Job MakeJob(const Schedule& schedule, const std::string& appPath);

// An hour or a minute as the file and the form show it.
std::string TwoDigits(long value);

// The time of day as the schedule has it.
void SetTime(Schedule& schedule, int hour, int minute);  // hour 0 to 23

}  // namespace qv
