// The one loop of the one thread. It sleeps until a socket, a timer, posted work or the user needs it.
#pragma once

#include <chrono>
#include <functional>

namespace qv {

class EventLoop {
   public:
    using TimerId = int;  // above 0

    virtual ~EventLoop() = default;

    // Handles all that is pending and returns at once.
    virtual void Yield() = 0;

    // Sleeps until something was handled or the seconds are over, whichever comes first; handles what is pending before
    // it sleeps, and then returns without sleeping. A time that isn't above 0 is a Yield.
    virtual void WaitFor(double seconds) = 0;

    // Yields only when some milliseconds have passed since the last turn: for calls at each step of long work.
    virtual void YieldIfDue() = 0;

    // Calls `ready(readable, writable)` at a turn whenever the socket or pipe is so. Each call replaces the earlier watch of
    // this descriptor; with both flags false the watch ends. A handler may end any watch, its own too.
    virtual void Watch(int descriptor, bool read, bool write, std::function<void(bool, bool)> ready) = 0;
    void Unwatch(int descriptor) { Watch(descriptor, false, false, nullptr); }

    // Calls `tick` when the time is over, again and again if `repeat`, at the turns of the loop. An interval of 0 ticks at
    // the next turn.
    virtual TimerId StartTimer(std::chrono::milliseconds interval, bool repeat, std::function<void()> tick) = 0;
    virtual void StopTimer(TimerId timer) = 0;  // an id that isn't running is passed over

    // Runs `work` at the next turn. The one function that may be called from another thread; it wakes the loop.
    virtual void Post(std::function<void()> work) = 0;
};

// How long nothing but "something happens" ends a wait: an hour, so that a wait loop looks at its terms now and then.
inline constexpr double kWaitForever = 3600;

}  // namespace qv
