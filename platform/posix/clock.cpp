#include <chrono>
#include <ctime>
#include <thread>

#include "platform/platform.h"

namespace platform {

void Sleep(unsigned milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  TerminationPoint();
}

SYSTEMTIME GetLocalTime() {
  timespec now{};
  std::timespec_get(&now, TIME_UTC);
  std::tm local{};
  localtime_r(&now.tv_sec, &local);
  const auto narrow = [](long value) { return static_cast<unsigned short>(value); };
  return {.wYear = narrow(local.tm_year + 1900L),
          .wMonth = narrow(local.tm_mon + 1L),
          .wDayOfWeek = narrow(local.tm_wday),
          .wDay = narrow(local.tm_mday),
          .wHour = narrow(local.tm_hour),
          .wMinute = narrow(local.tm_min),
          .wSecond = narrow(local.tm_sec),
          .wMilliseconds = narrow(now.tv_nsec / 1'000'000)};
}

}  // namespace platform
