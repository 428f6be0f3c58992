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

}  // namespace host
