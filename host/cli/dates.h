// Dates on the command line.
#pragma once

#include <string>

#include "TKSplDrv/types.h"

namespace host {

enum class Bound { kFrom, kTo };

// "2016-09-04", "2016-09-04 13", "2016-09-04 13:00", "2016-09-04T13:00:00", from 2000 to 2099. A
// day alone means its first second for kFrom and its last one for kTo. Throws UsageError that names
// the option when it is no such date.
SYSTEMTIME RequireDate(const char* option, const std::string& text, Bound bound);

// 0:00 of the day that lies so many days before.
SYSTEMTIME DaysBefore(const SYSTEMTIME& time, int days);

bool IsEarlier(const SYSTEMTIME& left, const SYSTEMTIME& right);

}  // namespace host
