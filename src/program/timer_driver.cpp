#include "program/timer_driver.h"

namespace qv {

void TimerDriver::TimerGone(Timer& timer) {
    const auto found = running_.find(&timer);
    if (found == running_.end()) return;
    loop_.StopTimer(found->second);
    running_.erase(found);
}

void TimerDriver::TimerChanged(Timer& timer) {
    TimerGone(timer);
    if (!timer.Running() || timer.Interval() <= 0) return;
    running_[&timer] = loop_.StartTimer(std::chrono::milliseconds{timer.Interval()}, true, [&timer] { timer.Tick(); });
}

}  // namespace qv
