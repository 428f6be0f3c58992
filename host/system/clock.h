// This machine's clock.
#pragma once

#include <chrono>

#include "TKSplDrv/types.h"

namespace host {

// Local date and time, to the second; the day of the week is not set.
SYSTEMTIME LocalNow();

// Seconds that this machine's zone is ahead of UTC, without summer time.
long ZoneOffset();

// So much later; the day of the week is not set.
SYSTEMTIME Later(const SYSTEMTIME& time, std::chrono::seconds by);

}  // namespace host
