#include "host/system/clock.h"

#include <ctime>

namespace host {

SYSTEMTIME LocalNow() {
  const std::time_t now = std::time(nullptr);
  const std::tm& local = *std::localtime(&now);
  SYSTEMTIME time{};
  time.wYear = static_cast<unsigned short>(local.tm_year + 1900);
  time.wMonth = static_cast<unsigned short>(local.tm_mon + 1);
  time.wDay = static_cast<unsigned short>(local.tm_mday);
  time.wHour = static_cast<unsigned short>(local.tm_hour);
  time.wMinute = static_cast<unsigned short>(local.tm_min);
  time.wSecond = static_cast<unsigned short>(local.tm_sec);
  return time;
}

long ZoneOffset() {
  const std::time_t now = std::time(nullptr);
  std::tm utc = *std::gmtime(&now);
  utc.tm_isdst = 0;
  return static_cast<long>(std::difftime(now, std::mktime(&utc)));
}

SYSTEMTIME Later(const SYSTEMTIME& time, std::chrono::seconds by) {
  using namespace std::chrono;
  const sys_days day = year(time.wYear) / time.wMonth / time.wDay;
  const auto moment = day + hours(time.wHour) + minutes(time.wMinute) + seconds(time.wSecond) + by;
  const year_month_day date = floor<days>(moment);
  const hh_mm_ss clock(moment - floor<days>(moment));
  const auto number = [](auto value) { return static_cast<unsigned short>(value); };
  SYSTEMTIME later{};
  later.wYear = number(static_cast<int>(date.year()));
  later.wMonth = number(static_cast<unsigned>(date.month()));
  later.wDay = number(static_cast<unsigned>(date.day()));
  later.wHour = number(clock.hours().count());
  later.wMinute = number(clock.minutes().count());
  later.wSecond = number(clock.seconds().count());
  return later;
}

}  // namespace host
