#include "k7/archive_kinds.h"

#include "TKSplDrv/conversions.h"
#include "k7/layouts.h"

namespace k7 {
namespace {

using namespace common::literals;

constexpr ArchiveKind kKinds[] = {
    {Kind::kHour, "Hour", "Hoyr", TitleKind::kHourly, "", Period::kHour, {}},
    {Kind::kDay, "Day", "Dey", TitleKind::kDaily, "", Period::kDay, {}},
    {Kind::kMon, "Mon", "Mon", TitleKind::kMonthly, "", Period::kMonth, {}},
    {Kind::kControl, "Control", "Dey", TitleKind::kDaily, " Контрольный"_w, Period::kDay, {}},
    {Kind::kChange, "Change", "Sit", TitleKind::kLog, " Изменения"_w, {}, kChangeLog},
    {Kind::kEvent, "Event", "Sit", TitleKind::kLog, " События"_w, {}, kEventLog},
};

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

const ArchiveKind& Describe(Kind kind) {
  const ArchiveKind* description = kKinds;
  while (description->kind != kind) ++description;
  return *description;
}

std::int64_t RecordsBetween(Period period, const TAVDT& from, const TAVDT& to) {
  const std::uint32_t difference = Position(period, to) - Position(period, from);
  return std::int64_t{static_cast<std::int32_t>(difference)} + 1;
}

void CutToPeriod(Period period, SYSTEMTIME& time) {
  time.wMinute = 0;
  time.wSecond = 0;
  time.wMilliseconds = 0;
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
