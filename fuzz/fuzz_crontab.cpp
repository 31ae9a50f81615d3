// Any crontab: a job comes and goes, and everything else stays byte for byte.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/linux/crontab_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::string crontab(reinterpret_cast<const char*>(data) + 2, size - 2);
    qv::Job job;
    job.JobTime = std::uint32_t{data[0]} * 60000 * 5;
    job.DaysOfWeek = data[1] & 127;
    const auto before = qv::JobIds(crontab);
    std::uint32_t id = 0;
    const std::string with = qv::WithJob(crontab, job, "true", id);
    if (id != 0) {
        if (with.compare(0, crontab.size(), crontab) != 0) std::abort();
        const auto ids = qv::JobIds(with);
        if (ids.size() != before.size() + 1 || ids.back() != id) std::abort();
        const std::string without = qv::WithoutJobs(with, id, id);
        if (without != crontab && without != crontab + "\n") std::abort();
    }
    const std::string none = qv::WithoutJobs(crontab, 0, UINT32_MAX);
    if (!qv::JobIds(none).empty()) std::abort();
    const std::string text = crontab.substr(0, crontab.size() / 2);
    if (const auto command = qv::CronCommand("HOME", text, crontab.substr(text.size())))
        if (command->find('\n') != command->npos) std::abort();
    return 0;
}
