#include "enterprise/schedule.h"

#include <algorithm>

#include "text/lines.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr int kEmptyLines = 9;
constexpr int kHoursOfHalf = 12;

template <class ScheduleType, class Take>
void ForEachValue(ScheduleType& schedule, Take take) {
    for (auto* value : {&schedule.ScheduleComputer, &schedule.ScheduleHour, &schedule.ScheduleMinute, &schedule.ScheduleAmPm})
        take(*value);
    for (auto& day : schedule.ScheduleDays) take(day);
    take(schedule.ScheduleTaskName);
}

bool Between(double value, int least, int greatest) { return value >= least && value <= greatest; }

}  // namespace

std::string TwoDigits(long value) { return (value < 10 ? "0" : "") + std::to_string(value); }

std::string ComposeSchedule(const Schedule& schedule) {
    LineWriter writer;
    ForEachValue(schedule, [&](const std::string& value) { writer.Line(value); });
    for (int i = 0; i < kEmptyLines; ++i) writer.Line("");
    return writer.Bytes();
}

void ParseSchedule(std::string_view bytes, Schedule& schedule) {
    LineReader reader(bytes);
    ForEachValue(schedule, [&](std::string& value) {
        if (!reader.AtEnd()) value = std::string(reader.Next());
    });
}

bool HasValidTime(const Schedule& schedule) {
    return Between(LeadingNumber(schedule.ScheduleHour), 1, kHoursOfHalf) && Between(LeadingNumber(schedule.ScheduleMinute), 0, 59);
}

Job MakeJob(const Schedule& schedule, const std::string& appPath) {
    auto hour = static_cast<std::uint32_t>(LeadingNumber(schedule.ScheduleHour)) % kHoursOfHalf;
    const auto minute = static_cast<std::uint32_t>(LeadingNumber(schedule.ScheduleMinute));
    if (schedule.ScheduleAmPm == "PM") hour += kHoursOfHalf;
    Job job;
    job.JobTime = 1000 * (3600 * hour + 60 * minute);
    for (const auto& code : schedule.ScheduleDays) {
        const auto at = std::find(kDayCodes.begin(), kDayCodes.end(), code);
        if (at != kDayCodes.end()) job.DaysOfWeek |= static_cast<std::uint8_t>(1U << (at - kDayCodes.begin()));
    }
    job.Flags = Job::kRunPeriodically;
    job.Command = "\"" + appPath + "autocheck.exe\"";
    return job;
}

void SetTime(Schedule& schedule, int hour, int minute) {
    const int ofHalf = hour % kHoursOfHalf;
    schedule.ScheduleHour = TwoDigits(ofHalf == 0 ? kHoursOfHalf : ofHalf);
    schedule.ScheduleMinute = TwoDigits(minute);
    schedule.ScheduleAmPm = hour < kHoursOfHalf ? "AM" : "PM";
}

}  // namespace qv
