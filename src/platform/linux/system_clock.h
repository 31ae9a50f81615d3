// The system's clock. QUORVANTIS_NO_PAUSES=1 in the environment turns the fixed pauses off.
#pragma once

#include "platform/clock.h"

namespace qv {

class SystemClock : public Clock {
   public:
    SystemClock();
    double SecondsSinceMidnight() const override;
    std::tm LocalTime() const override;
    bool PausesWanted() const override { return pausesWanted_; }
    void LeaveOutPauses() { pausesWanted_ = false; }  // nobody is there to look

   private:
    bool pausesWanted_ = true;
    mutable std::time_t hourKnown_ = -1;  // the full hour for which the offset below was asked
    mutable long secondsAtThatHour_ = 0;  // seconds since midnight, local time, at that hour
};

}  // namespace qv
