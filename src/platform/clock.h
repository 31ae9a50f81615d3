// The time of day, and the fixed pauses of the program.
#pragma once

#include <ctime>

namespace qv {

class Clock {
   public:
    virtual ~Clock() = default;
    // Seconds since midnight, local time, with a fraction: 0 up to, but not including, 86,400. It falls back at midnight.
    virtual double SecondsSinceMidnight() const = 0;
    virtual std::tm LocalTime() const = 0;
    // False when an unattended script asked for no fixed pauses. Time-outs and deadlines stay real.
    virtual bool PausesWanted() const = 0;
};

}  // namespace qv
