// The clock and the pauses of the tests, in the platform's place: a pause returns at once and is
// kept.
#pragma once

#include <functional>
#include <vector>

#include "TKSplDrv/types.h"

namespace support::clock {

// Forgets the pauses and the hook; the local time becomes 2016-09-04 13:05:09.
void Reset();
void SetLocalTime(const SYSTEMTIME& time);
// The pauses since Reset, in milliseconds.
std::vector<unsigned> Pauses();
// Called at each pause, with no lock held.
void OnPause(std::function<void(unsigned)> hook);

}  // namespace support::clock
