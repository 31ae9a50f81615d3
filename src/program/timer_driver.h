// Makes the timers of the forms tick in the event loop.
#pragma once

#include <unordered_map>

#include "controls/simple_controls.h"
#include "platform/event_loop.h"

namespace qv {

class TimerDriver : public TimerService {
   public:
    explicit TimerDriver(EventLoop& loop) : loop_(loop) {}
    void TimerChanged(Timer& timer) override;
    void TimerGone(Timer& timer) override;

   private:
    EventLoop& loop_;
    std::unordered_map<const Timer*, EventLoop::TimerId> running_;
};

}  // namespace qv
