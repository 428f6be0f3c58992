// This machine's clock.
#pragma once

#include "TKSplDrv/types.h"

namespace host {

// Local date and time, to the second; the day of the week is not set.
SYSTEMTIME LocalNow();

// Seconds that this machine's zone is ahead of UTC, without summer time.
long ZoneOffset();

}  // namespace host
