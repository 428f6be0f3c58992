// The periods of archives: an hour, a day, a month, each with a number.
#pragma once

#include <cstdint>
#include <optional>

#include "TKSplDrv/records.h"
#include "TKSplDrv/types.h"

namespace host {

enum class Period { kHour, kDay, kMonth };

// None: sections of this kind have no record for each period.
std::optional<Period> PeriodOf(tav::TitleKind kind);

// Periods that follow each other have numbers that do. None when the date is none; the day of a
// month's record is not looked at, and neither are minutes and seconds.
using PeriodNumber = std::int64_t;
std::optional<PeriodNumber> NumberOf(Period period, const TAVDT& time);

// Periods that follow each other, both ends included; none when the last one lies before the first.
struct PeriodRange {
  PeriodNumber first = 0;
  PeriodNumber last = -1;
};

// The first second of a period.
TAVDT StartOf(Period period, PeriodNumber number);

// Whether a date is one of the calendar, with a time of day.
bool IsDate(const TAVDT& time);
bool IsEarlier(const TAVDT& left, const TAVDT& right);

TAVDT TavOf(const SYSTEMTIME& time);
SYSTEMTIME SystemTimeOf(const TAVDT& time);

}  // namespace host
