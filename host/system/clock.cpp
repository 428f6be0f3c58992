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

}  // namespace host
