// The two buttons that go to the previous and the next document, once a press and again while they are held.
#pragma once

#include <cstdint>
#include <functional>

#include "mainwindow/check_form.h"
#include "platform/event_loop.h"
#include "session/session.h"

namespace qv {

class SpinButtons {
   public:
    SpinButtons(CheckForm& window, const RunFlags& flags, EventLoop& loop) : window_(window), flags_(flags), loop_(loop) {}

    void SpinLeft_MouseDown() { Begin(2); }
    void SpinRight_MouseDown() { Begin(1); }
    void Release() { SpinDirection_ = 0; }
    void Timer2_Timer();

    // The walk to a document with a questionable link, while good links are hidden: 1 forward, 2 backward.
    std::function<bool(std::int16_t direction)> FindQuestionableDocument;  // false: the user was told that there is none

   private:
    void Begin(std::int16_t direction);
    void Step();
    void GoToNeighbor();

    CheckForm& window_;
    const RunFlags& flags_;
    EventLoop& loop_;
    std::int16_t SpinDirection_ = 0;  // 0 none, 1 next, 2 previous
    bool inStep_ = false;
};

}  // namespace qv
