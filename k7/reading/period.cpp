#include "k7/reading/period.h"

#include "TKSplDrv/conversions.h"

namespace k7 {
namespace {

// Counts the periods from a fixed one on; 32 bits that wrap.
std::uint32_t Position(Period period, const TAVDT& time) {
  switch (period) {
    case Period::kHour:
      return GetAbsH(time.year, time.month, time.day, time.hour);
    case Period::kDay:
      return GetAbsD(time.year, time.month, time.day);
    case Period::kMonth:
      break;
  }
  return GetAbsM(time.year, time.month);
}

}  // namespace

std::int64_t RecordsBetween(Period period, const TAVDT& from, const TAVDT& to) {
  const std::uint32_t difference = Position(period, to) - Position(period, from);
  return std::int64_t{static_cast<std::int32_t>(difference)} + 1;
}

void CutToPeriod(Period period, SYSTEMTIME& time) {
  time.wMinute = 0;
  time.wSecond = 0;
  if (period != Period::kHour) time.wHour = 0;
  if (period == Period::kMonth) time.wDay = 0;
}

void NextPeriod(Period period, SYSTEMTIME& time) {
  switch (period) {
    case Period::kHour:
      DateTimeIncH(&time);
      break;
    case Period::kDay:
      DateTimeIncD(&time);
      break;
    case Period::kMonth:
      DateTimeIncM(&time);
      break;
  }
}

}  // namespace k7
