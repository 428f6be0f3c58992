// The periods of the archives: how to count them, cut a date to the start of one, and step on.
#pragma once

#include <cstdint>

#include "TKSplDrv/conversions.h"
#include "older/link/frame.h"
#include "older/session/reader_state.h"
#include "older/tables.h"

namespace older {

struct Period {
  ArchiveKind kind;
  TitleKind title;
  Function function;
  std::uint32_t (*position)(const SYSTEMTIME& date);
  void (*cut)(SYSTEMTIME& date);
  unsigned (*step)(SYSTEMTIME* date);
  bool lastIncluded;  // whether the period that the range ends in is read

  bool Includes(const SYSTEMTIME& date, const SYSTEMTIME& last) const {
    return lastIncluded ? position(date) <= position(last) : position(date) < position(last);
  }
};

inline std::uint32_t HourOf(const SYSTEMTIME& date) {
  return GetAbsH(date.wYear, static_cast<unsigned char>(date.wMonth),
                 static_cast<unsigned char>(date.wDay), static_cast<unsigned char>(date.wHour));
}

inline std::uint32_t DayOf(const SYSTEMTIME& date) {
  return GetAbsD(date.wYear, static_cast<unsigned char>(date.wMonth),
                 static_cast<unsigned char>(date.wDay));
}

inline std::uint32_t MonthOf(const SYSTEMTIME& date) {
  return GetAbsM(date.wYear, static_cast<unsigned char>(date.wMonth));
}

inline void CutToHour(SYSTEMTIME& date) { date.wMinute = date.wSecond = date.wMilliseconds = 0; }

inline void CutToDay(SYSTEMTIME& date) {
  CutToHour(date);
  date.wHour = 0;
}

inline void CutToMonth(SYSTEMTIME& date) {
  CutToDay(date);
  date.wDay = 1;
}

inline constexpr Period kHours = {ArchiveKind::kHourly,
                                  TitleKind::kHourly,
                                  Function::kHourly,
                                  HourOf,
                                  CutToHour,
                                  DateTimeIncH,
                                  true};
// The day that the range ends in is not read, unlike its hour and month: intended.
inline constexpr Period kDays = {
    ArchiveKind::kDaily, TitleKind::kDaily, Function::kDaily, DayOf, CutToDay, DateTimeIncD, false};
inline constexpr Period kMonths = {ArchiveKind::kMonthly,
                                   TitleKind::kMonthly,
                                   Function::kMonthly,
                                   MonthOf,
                                   CutToMonth,
                                   DateTimeIncM,
                                   true};

}  // namespace older
