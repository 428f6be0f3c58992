#include "host/reading/clock_check.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <chrono>

#include "host/reading/patience.h"

namespace host {
namespace {

using std::chrono::seconds;

std::chrono::year_month_day DayOf(const SYSTEMTIME& time) {
  return std::chrono::year(time.wYear) / time.wMonth / time.wDay;
}

seconds SinceEpoch(const SYSTEMTIME& time) {
  return std::chrono::sys_days(DayOf(time)).time_since_epoch() + std::chrono::hours(time.wHour) +
         std::chrono::minutes(time.wMinute) + seconds(time.wSecond);
}

// An instrument whose clock was never set gives months and days of 0.
bool IsDate(const SYSTEMTIME& time) {
  return DayOf(time).ok() && time.wHour < 24 && time.wMinute < 60 && time.wSecond < 60;
}

}  // namespace

std::optional<SYSTEMTIME> ParseInstrumentTime(const std::string& text) {
  SYSTEMTIME time{};
  const std::array fields = {&time.wYear, &time.wMonth,  &time.wDay,
                             &time.wHour, &time.wMinute, &time.wSecond};
  constexpr std::string_view kBehind = ".. ::";
  const char* at = text.data();
  const char* const end = at + text.size();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const auto [rest, error] = std::from_chars(at, end, *fields[i]);
    const bool last = i == kBehind.size();
    if (error != std::errc() || last != (rest == end)) return std::nullopt;
    if (!last && *rest != kBehind[i]) return std::nullopt;
    at = rest + 1;
  }
  return IsDate(time) ? std::optional(time) : std::nullopt;
}

void ClockCheck::Tell(const Message& message) {
  if (message.subject == "DT" && settings_.clockWarning && !reading_) {
    if (const auto instrument = ParseInstrumentTime(message.detail)) {
      const SYSTEMTIME machine = now_();
      const seconds difference = SinceEpoch(*instrument) - SinceEpoch(machine);
      const seconds limit = *settings_.clockWarning;
      const bool beyond = limit > seconds(0) && std::chrono::abs(difference) > limit;
      reading_ = {*instrument, machine, difference.count(), beyond};
    }
  }
  Wrapped().Tell(message);
}

std::string ClockDifference(const ClockReading& reading) {
  return fmt::format("the instrument's clock is {} {} this machine's",
                     TimeText(std::chrono::abs(seconds(reading.difference))),
                     reading.difference < 0 ? "behind" : "ahead of");
}

}  // namespace host
