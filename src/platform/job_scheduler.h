// The system's scheduler of jobs that start by themselves.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qv {

// A weekly job.
struct Job {
    std::uint32_t JobTime = 0;      // milliseconds after midnight, less than 86,400,000
    std::uint32_t DaysOfMonth = 0;  // always 0 here: the days of the week decide
    std::uint8_t DaysOfWeek = 0;    // bits: Monday 1, Tuesday 2, Wednesday 4 and so on to Sunday 64; none: it never starts
    std::uint8_t Flags = 0;
    std::string Command;  // what is started, in quotation marks and the backslash form

    static constexpr std::uint8_t kRunPeriodically = 1;
};

class JobScheduler {
   public:
    using Status = std::uint32_t;
    static constexpr Status kSuccess = 0;
    static constexpr Status kMoreData = 234;  // the enumeration has more to give: ask again

    virtual ~JobScheduler() = default;
    virtual std::string ComputerName() const = 0;
    // Each names the computer whose scheduler is meant, and gives kSuccess or another number for a failure.
    virtual Status Add(const std::string& computer, const Job& job, std::uint32_t& id) = 0;  // ids begin at 1
    virtual Status Delete(const std::string& computer, std::uint32_t lowest, std::uint32_t highest) = 0;
    // The ids of the jobs, appended. `resume` starts with 0 and comes back for the next call.
    virtual Status Enumerate(const std::string& computer, std::vector<std::uint32_t>& ids, std::uint32_t& resume) = 0;
};

}  // namespace qv
