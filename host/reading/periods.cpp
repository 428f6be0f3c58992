#include "host/reading/periods.h"

#include <chrono>
#include <tuple>

namespace host {
namespace {

constexpr int kHoursOfDay = 24;
constexpr int kMonthsOfYear = 12;

std::chrono::year_month_day DayOf(const TAVDT& time) {
  return std::chrono::year(time.year) / std::chrono::month(time.month) / std::chrono::day(time.day);
}

TAVDT Midnight(const std::chrono::year_month_day& day) {
  return {static_cast<unsigned short>(static_cast<int>(day.year())),
          static_cast<unsigned char>(static_cast<unsigned>(day.month())),
          static_cast<unsigned char>(static_cast<unsigned>(day.day())),
          0,
          0,
          0};
}

PeriodNumber DaysOf(const TAVDT& time) {
  return std::chrono::sys_days(DayOf(time)).time_since_epoch().count();
}

TAVDT DayOfNumber(PeriodNumber number) {
  return Midnight(std::chrono::sys_days(std::chrono::days(number)));
}

auto Parts(const TAVDT& time) {
  return std::tuple(unsigned{time.year}, unsigned{time.month}, unsigned{time.day},
                    unsigned{time.hour}, unsigned{time.minute}, unsigned{time.second});
}

}  // namespace

std::optional<Period> PeriodOf(tav::TitleKind kind) {
  switch (kind) {
    case tav::TitleKind::kHourly:
      return Period::kHour;
    case tav::TitleKind::kDaily:
      return Period::kDay;
    case tav::TitleKind::kMonthly:
      return Period::kMonth;
    default:
      return std::nullopt;
  }
}

std::optional<PeriodNumber> NumberOf(Period period, const TAVDT& time) {
  if (period == Period::kMonth) {
    if (time.year == 0 || time.month < 1 || time.month > kMonthsOfYear) return std::nullopt;
    return PeriodNumber{time.year} * kMonthsOfYear + time.month - 1;
  }
  if (time.year == 0 || !DayOf(time).ok() || time.hour >= kHoursOfDay) return std::nullopt;
  const PeriodNumber days = DaysOf(time);
  return period == Period::kDay ? days : days * kHoursOfDay + time.hour;
}

TAVDT StartOf(Period period, PeriodNumber number) {
  if (period == Period::kDay) return DayOfNumber(number);
  if (period == Period::kHour) {
    const std::chrono::hours hours(number);
    const auto day = std::chrono::floor<std::chrono::days>(hours);
    TAVDT time = DayOfNumber(day.count());
    time.hour = static_cast<unsigned char>((hours - day).count());
    return time;
  }
  TAVDT time{};
  time.year = static_cast<unsigned short>(number / kMonthsOfYear);
  time.month = static_cast<unsigned char>(number % kMonthsOfYear + 1);
  time.day = 1;
  return time;
}

bool IsDate(const TAVDT& time) {
  return time.year != 0 && DayOf(time).ok() && time.hour < kHoursOfDay && time.minute < 60 &&
         time.second < 60;
}

bool IsEarlier(const TAVDT& left, const TAVDT& right) { return Parts(left) < Parts(right); }

TAVDT TavOf(const SYSTEMTIME& time) {
  return {time.wYear,
          static_cast<unsigned char>(time.wMonth),
          static_cast<unsigned char>(time.wDay),
          static_cast<unsigned char>(time.wHour),
          static_cast<unsigned char>(time.wMinute),
          static_cast<unsigned char>(time.wSecond)};
}

SYSTEMTIME SystemTimeOf(const TAVDT& time) {
  SYSTEMTIME result{};
  result.wYear = time.year;
  result.wMonth = time.month;
  result.wDay = time.day;
  result.wHour = time.hour;
  result.wMinute = time.minute;
  result.wSecond = time.second;
  return result;
}

}  // namespace host
