#include "simulator/moment.h"

#include <ctime>

namespace simulator {
namespace {

std::chrono::year_month_day DayOf(const ClockTime& time) {
  return std::chrono::year{time.year} / time.month / time.day;
}

bool InRange(int value, int last) { return value >= 0 && value <= last; }

}  // namespace

bool IsDate(const ClockTime& time) {
  return time.month >= 1 && time.month <= 12 && InRange(time.day, 31) && DayOf(time).ok() &&
         InRange(time.hour, 23) && InRange(time.minute, 59) && InRange(time.second, 59);
}

Moment ToMoment(const ClockTime& time) {
  return std::chrono::sys_days{DayOf(time)} + std::chrono::hours{time.hour} +
         std::chrono::minutes{time.minute} + std::chrono::seconds{time.second};
}

ClockTime ToClockTime(Moment moment) {
  const auto midnight = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day day{midnight};
  const std::chrono::hh_mm_ss<std::chrono::seconds> time{moment - midnight};
  return {static_cast<int>(day.year()),
          static_cast<int>(static_cast<unsigned>(day.month())),
          static_cast<int>(static_cast<unsigned>(day.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

Moment LastSeptember(Moment now) {
  const ClockTime time = ToClockTime(now);
  return ToMoment({time.month >= 9 ? time.year : time.year - 1, 9, 1, 0, 0, 0});
}

ClockTime LocalTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  const int second = local.tm_sec > 59 ? 59 : local.tm_sec;  // a leap second
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     second};
}

}  // namespace simulator
