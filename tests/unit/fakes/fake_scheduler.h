// A scheduler in memory. It gives its jobs one a call, and can be made to fail.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/job_scheduler.h"

namespace qv {

class FakeScheduler : public JobScheduler {
   public:
    std::string ComputerName() const override { return "this-computer"; }
    Status Add(const std::string& computer, const Job& job, std::uint32_t& id) override {
        asked.push_back("add " + computer);
        added.push_back(job);
        id = nextId;
        return status;
    }
    Status Delete(const std::string& computer, std::uint32_t lowest, std::uint32_t highest) override {
        asked.push_back("delete " + computer + " " + std::to_string(lowest) + " " + std::to_string(highest));
        return status;
    }
    Status Enumerate(const std::string& computer, std::vector<std::uint32_t>& found, std::uint32_t& resume) override {
        asked.push_back("enumerate " + computer + " " + std::to_string(resume));
        if (enumerateStatus != kSuccess || ids.empty()) return enumerateStatus;
        found.push_back(ids[resume]);
        return ++resume < ids.size() ? kMoreData : kSuccess;
    }

    std::vector<std::uint32_t> ids;
    std::uint32_t nextId = 1;
    Status status = kSuccess;
    Status enumerateStatus = kSuccess;
    std::vector<std::string> asked;
    std::vector<Job> added;
};

}  // namespace qv
