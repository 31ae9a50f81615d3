// A clock that stands still until a test moves it.
#pragma once

#include "platform/clock.h"

namespace qv {

class FakeClock : public Clock {
   public:
    double SecondsSinceMidnight() const override { return now; }
    std::tm LocalTime() const override { return local; }
    bool PausesWanted() const override { return pauses; }

    std::tm local{};
    double now = 36000;
    bool pauses = true;
};

}  // namespace qv
