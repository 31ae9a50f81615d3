#include "platform/linux/system_clock.h"

#include <time.h>

#include <cstdlib>
#include <cstring>

namespace qv {
namespace {

// Zone changes happen at full quarters of an hour, so the local time is asked for once in each.
constexpr std::time_t kQuarter = 900;
constexpr long kDay = 86400;

}  // namespace

SystemClock::SystemClock() {
    const char* noPauses = std::getenv("QUORVANTIS_NO_PAUSES");
    pausesWanted_ = noPauses == nullptr || std::strcmp(noPauses, "1") != 0;
}

double SystemClock::SecondsSinceMidnight() const {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    const std::time_t quarter = now.tv_sec - now.tv_sec % kQuarter;
    if (quarter != hourKnown_) {
        std::tm local{};
        localtime_r(&quarter, &local);
        secondsAtThatHour_ = local.tm_hour * 3600L + local.tm_min * 60L + local.tm_sec;
        hourKnown_ = quarter;
    }
    const long seconds = (secondsAtThatHour_ + static_cast<long>(now.tv_sec - quarter)) % kDay;
    return static_cast<double>(seconds) + static_cast<double>(now.tv_nsec) / 1e9;
}

std::tm SystemClock::LocalTime() const {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

}  // namespace qv
