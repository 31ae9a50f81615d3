// JobScheduler on the user's crontab.
#pragma once

#include "platform/job_scheduler.h"

namespace qv {

// Runs the program `crontab` that PATH names. The computer's name isn't looked at: a crontab is always that of this machine. A
// job starts the program autocheck beside this one, for the data folder that this one uses; the command of the job isn't looked
// at. A crontab that can't be read is never written.
class CrontabScheduler : public JobScheduler {
   public:
    explicit CrontabScheduler(std::string dataFolder) : dataFolder_(std::move(dataFolder)) {}  // in the backslash form

    std::string ComputerName() const override;
    Status Add(const std::string& computer, const Job& job, std::uint32_t& id) override;
    Status Delete(const std::string& computer, std::uint32_t lowest, std::uint32_t highest) override;
    Status Enumerate(const std::string& computer, std::vector<std::uint32_t>& ids, std::uint32_t& resume) override;

   private:
    std::string dataFolder_;
};

}  // namespace qv
