// The interrupt of a terminal (Ctrl-C) as an event of the loop.
#pragma once

#include <cstdio>
#include <functional>

#include "platform/event_loop.h"

namespace qv {

// While it lives, an interrupt or a termination signal calls `interrupted` at the next turn, instead of ending the process.
// A second one ends the process as usual.
class InterruptWatch {
   public:
    InterruptWatch(EventLoop& loop, std::function<void()> interrupted);
    ~InterruptWatch();
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

   private:
    void GiveBack();
    EventLoop& loop_;
    int signals_ = -1;
};

bool IsTerminal(std::FILE* stream);

}  // namespace qv
