// The clock that every other test replaces.
#include <doctest/doctest.h>

#include <ctime>
#include <string>

#include "common/format.h"
#include "platform/platform.h"

namespace {

std::string LocalTime() {
  const std::time_t now = std::time(nullptr);
  char text[64];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S, %w", std::localtime(&now));
  return text;
}

}  // namespace

TEST_CASE("the local time") {
  std::string before, told;
  do {  // until no second has passed between the two
    before = LocalTime();
    const SYSTEMTIME now = platform::GetLocalTime();
    CHECK(now.wMilliseconds < 1000);
    told = common::Format("%04d-%02d-%02d %02d:%02d:%02d, %d", now.wYear, now.wMonth, now.wDay,
                          now.wHour, now.wMinute, now.wSecond, now.wDayOfWeek);
  } while (before != LocalTime());
  CHECK(told == before);
}
