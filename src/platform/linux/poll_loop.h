// The event loop on epoll, for programs without windows.
#pragma once

#include <chrono>
#include <deque>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "platform/event_loop.h"

namespace qv {

// Turns may be nested: a handler may call Yield or WaitFor, and every handler may be entered again from such a turn.
class PollLoop : public EventLoop {
   public:
    PollLoop();
    ~PollLoop() override;
    PollLoop(const PollLoop&) = delete;
    PollLoop& operator=(const PollLoop&) = delete;

    void Yield() override;
    void WaitFor(double seconds) override;
    void YieldIfDue() override;
    void Watch(int descriptor, bool read, bool write, std::function<void(bool, bool)> ready) override;
    TimerId StartTimer(std::chrono::milliseconds interval, bool repeat, std::function<void()> tick) override;
    void StopTimer(TimerId timer) override;
    void Post(std::function<void()> work) override;

   private:
    using SteadyTime = std::chrono::steady_clock::time_point;
    struct Watched {
        bool read = false, write = false;
        std::shared_ptr<std::function<void(bool, bool)>> ready;
    };
    struct RunningTimer {
        SteadyTime due;
        std::chrono::milliseconds interval;
        bool repeat = false;
        std::shared_ptr<std::function<void()>> tick;
    };

    bool Turn(std::chrono::milliseconds atMost);  // whether anything was handled
    void RunPosted();
    std::function<void()> TakePosted();  // the next piece of work, or nothing
    bool RunTimers();
    bool RunDescriptors(int timeoutMilliseconds);
    int UntilNextTimer(std::chrono::milliseconds atMost) const;

    int epoll_ = -1;
    int wake_ = -1;
    std::unordered_map<int, Watched> watched_;
    std::unordered_map<TimerId, RunningTimer> timers_;
    TimerId lastTimer_ = 0;
    SteadyTime lastTurn_;
    std::mutex mutex_;  // guards posted_
    std::deque<std::function<void()>> posted_;
};

}  // namespace qv
