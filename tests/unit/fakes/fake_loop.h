// An event loop whose waits move a fake clock: a wait goes straight to the next timer, posted work or its end.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <utility>

#include "fakes/fake_clock.h"
#include "platform/event_loop.h"

namespace qv {

class FakeLoop : public EventLoop {
   public:
    explicit FakeLoop(FakeClock& clock) : clock_(clock) {}

    void Yield() override { RunDue(); }
    void YieldIfDue() override {
        ++yields;
        if (onYield) onYield();
        RunDue();
    }
    void WaitFor(double seconds) override {
        if (RunDue()) return;
        double end = clock_.now + seconds;
        for (const auto& [id, timer] : timers_) end = std::min(end, timer.due);
        clock_.now = std::max(clock_.now, end);
        RunDue();
    }
    void Watch(int, bool, bool, std::function<void(bool, bool)>) override {}
    TimerId StartTimer(std::chrono::milliseconds interval, bool repeat, std::function<void()> tick) override {
        const double seconds = static_cast<double>(interval.count()) / 1000;
        timers_[++last_] = {clock_.now + seconds, seconds, repeat, std::move(tick)};
        return last_;
    }
    void StopTimer(TimerId timer) override { timers_.erase(timer); }
    void Post(std::function<void()> work) override { posted_.push_back(std::move(work)); }

    // Runs `work` so many seconds from now, in whatever wait that falls.
    void After(double seconds, std::function<void()> work) {
        StartTimer(std::chrono::milliseconds{static_cast<long>(seconds * 1000)}, false, std::move(work));
    }

    int yields = 0;
    std::function<void()> onYield;  // what the user sees or does in the middle of a long operation

   private:
    struct Running {
        double due = 0;
        double interval = 0;
        bool repeat = false;
        std::function<void()> tick;
    };
    bool RunDue() {
        bool any = false;
        while (!posted_.empty()) {
            auto work = std::move(posted_.front());
            posted_.pop_front();
            work();
            any = true;
        }
        for (auto at = timers_.begin(); at != timers_.end();) {
            if (at->second.due > clock_.now + 1e-9) {
                ++at;
                continue;
            }
            const auto tick = at->second.tick;
            if (at->second.repeat)
                at->second.due = clock_.now + at->second.interval;
            else
                timers_.erase(at);
            tick();
            any = true;
            at = timers_.begin();
        }
        return any;
    }

    FakeClock& clock_;
    std::map<TimerId, Running> timers_;
    std::deque<std::function<void()>> posted_;
    TimerId last_ = 0;
};

}  // namespace qv
