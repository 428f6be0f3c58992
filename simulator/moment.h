// Dates of an instrument's clock: local time without a zone.
#pragma once

#include <chrono>

#include "simulator/simulator.h"

namespace simulator {

using Moment = std::chrono::sys_seconds;

// False for a month 13, a 30 February or an hour 24.
bool IsDate(const ClockTime& time);
Moment ToMoment(const ClockTime& time);  // of a date
ClockTime ToClockTime(Moment moment);
// The 1st of September before, or of now: the totals of heat and gas count from there.
Moment LastSeptember(Moment now);
// The computer's local time.
ClockTime LocalTime();

}  // namespace simulator
