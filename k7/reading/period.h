// The intervals of periodic archives and how they are stepped through.
#pragma once

#include <cstdint>

#include "TKSplDrv/types.h"

namespace k7 {

// The interval of a periodic archive's records.
enum class Period { kHour, kDay, kMonth };

// How many records lie between two moments, both included; none or less when to lies before from.
std::int64_t RecordsBetween(Period period, const TAVDT& from, const TAVDT& to);
// The start of the period that a moment lies in. A month starts with day 0: intended.
void CutToPeriod(Period period, SYSTEMTIME& time);
void NextPeriod(Period period, SYSTEMTIME& time);

}  // namespace k7
