// The event loop on epoll, for programs without windows.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <set>
#include <unordered_map>

#include "platform/event_loop.h"

namespace qv {

// Turns may be nested: a handler may call Yield or WaitFor, and every handler may be entered again from such a turn, also
// while it runs itself; a handler that can't bear that guards itself. Work that was posted, timers that are due and
// descriptors that are ready are never held back by a handler that waits in a turn of its own.
// A descriptor's watch is to be ended before the descriptor is closed.
class PollLoop : public EventLoop {
   public:
    PollLoop();
    ~PollLoop() override;
    PollLoop(const PollLoop&) = delete;
    PollLoop& operator=(const PollLoop&) = delete;

    void Yield() override;
    void WaitFor(double seconds) override;
    void YieldIfDue() override;
    // A descriptor that the system can't wait for (a plain file, /dev/null, one that isn't open) counts as ready at each turn.
    void Watch(int descriptor, bool read, bool write, std::function<void(bool, bool)> ready) override;
    TimerId StartTimer(std::chrono::milliseconds interval, bool repeat, std::function<void()> tick) override;
    void StopTimer(TimerId timer) override;
    void Post(std::function<void()> work) override;

   private:
    using SteadyTime = std::chrono::steady_clock::time_point;
    struct Watched {
        bool read = false, write = false;
        std::uint32_t generation = 0;  // tells this watch from earlier ones of the same number
        std::shared_ptr<std::function<void(bool, bool)>> ready;
    };
    struct RunningTimer {
        SteadyTime due;
        std::chrono::milliseconds interval;
        bool repeat = false;
        std::shared_ptr<std::function<void()>> tick;
    };

    void Turn(std::chrono::milliseconds atMost);
    void RunPosted();
    bool RunTimers();
    void RunDescriptors(int timeoutMilliseconds);
    void RunAlwaysReady();
    int UntilNextTimer(std::chrono::milliseconds atMost) const;

    int epoll_ = -1;
    int wake_ = -1;
    std::unordered_map<int, Watched> watched_;
    std::set<int> alwaysReady_;  // those that the system can't wait for
    std::uint32_t lastGeneration_ = 0;
    std::unordered_map<TimerId, RunningTimer> timers_;
    TimerId lastTimer_ = 0;
    SteadyTime lastTurn_;
    std::uint64_t polls_ = 0;  // how often the descriptors were asked for
    std::mutex mutex_;         // guards posted_
    std::deque<std::function<void()>> posted_;
};

}  // namespace qv
