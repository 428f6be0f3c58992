#include <cstdint>

#include "TKSplDrv/conversions.h"
#include "common/scan.h"

namespace {

// Index = month; 0 and 13 belong to dates that no calendar has.
constexpr unsigned kDaysBefore[14] = {0, 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 0};
constexpr unsigned kDaysIn[13] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

// The four-year rule alone, for century years too: intended.
bool IsLeap(unsigned year) { return year % 4 == 0; }

unsigned DaysBefore(unsigned month) { return month < 14 ? kDaysBefore[month] : 0; }

unsigned DaysIn(unsigned year, unsigned month) {
  if (month == 2 && IsLeap(year)) return 29;
  return month < 13 ? kDaysIn[month] : 0;
}

unsigned char Byte(unsigned value) { return static_cast<unsigned char>(value); }

}  // namespace

unsigned DateTimeSysToTav(TAVDT* out, const SYSTEMTIME* in) {
  *out = {in->wYear,       Byte(in->wMonth),  Byte(in->wDay),
          Byte(in->wHour), Byte(in->wMinute), Byte(in->wSecond)};
  return 1;
}

unsigned DateTimeTavToSys(SYSTEMTIME* out, const TAVDT* in) {
  out->wYear = in->year;
  out->wMonth = in->month;
  out->wDay = in->day;
  out->wHour = in->hour;
  out->wMinute = in->minute;
  out->wSecond = in->second;
  return 1;
}

unsigned GetAbsH(unsigned short year, unsigned char month, unsigned char day, unsigned char hour) {
  return GetAbsD(year, month, day) * 24 + hour;
}

unsigned GetAbsD(unsigned short year, unsigned char month, unsigned char day) {
  const unsigned years = unsigned{year} - 1;  // year 0 wraps, as all of this arithmetic does
  const unsigned leapDay = month > 2 && IsLeap(year) ? 1 : 0;
  const auto leapDays = static_cast<std::uint16_t>(static_cast<int>(years) / 4);
  return DaysBefore(month) + years * 365 + leapDays + day + leapDay;
}

unsigned short GetAbsM(unsigned short year, unsigned char month) {
  return static_cast<unsigned short>((unsigned{year} - 1) * 12 + month - 1);
}

unsigned DateTimeIncH(SYSTEMTIME* time) {
  if (time->wHour < 23) {
    ++time->wHour;
    return 1;
  }
  time->wHour = 0;
  return DateTimeIncD(time);
}

unsigned DateTimeIncD(SYSTEMTIME* time) {
  if (time->wDay < DaysIn(time->wYear, time->wMonth)) {
    ++time->wDay;
    return 1;
  }
  time->wDay = 1;
  return DateTimeIncM(time);
}

unsigned DateTimeIncM(SYSTEMTIME* time) {
  if (time->wMonth < 12) {
    ++time->wMonth;
    return 1;
  }
  time->wMonth = 1;
  ++time->wYear;
  return 1;
}

TAVDT DtUrmToTav(const char* text) {
  std::uint32_t fields[6] = {};  // day, month, year, hour, minute, second
  common::Scanner scanner(text);
  for (int i = 0; i < 6; ++i) {
    if (!scanner.Integer(fields[i]) || (i < 5 && !scanner.Separator())) break;
  }
  return {common::FullYear(fields[2]),
          Byte(fields[1]),
          Byte(fields[0]),
          Byte(fields[3]),
          Byte(fields[4]),
          Byte(fields[5])};
}
