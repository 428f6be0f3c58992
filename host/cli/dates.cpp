#include "host/cli/dates.h"

#include <fmt/format.h>

#include <charconv>
#include <chrono>
#include <string_view>
#include <tuple>

#include "host/reading/settings.h"

namespace host {
namespace {

using std::chrono::year_month_day;

// Takes fixed pieces from the front of a text and remembers the first that is missing.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  unsigned short Digits(std::size_t count) {
    unsigned short value = 0;
    const std::string_view digits = rest_.substr(0, count);
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    ok_ = ok_ && digits.size() == count && result.ptr == digits.data() + count;
    rest_.remove_prefix(digits.size());
    return value;
  }
  // Whether one of these characters came; it is taken.
  bool Skip(std::string_view oneOf) {
    if (rest_.empty() || oneOf.find(rest_.front()) == std::string_view::npos) return false;
    rest_.remove_prefix(1);
    return true;
  }
  void Require(std::string_view oneOf) { ok_ = Skip(oneOf) && ok_; }
  bool AtEnd() const { return rest_.empty(); }
  bool Ok() const { return ok_; }

 private:
  std::string_view rest_;
  bool ok_ = true;
};

year_month_day DayOf(const SYSTEMTIME& time) {
  return std::chrono::year(time.wYear) / std::chrono::month(time.wMonth) /
         std::chrono::day(time.wDay);
}

void SetDay(SYSTEMTIME& time, const year_month_day& day) {
  time.wYear = static_cast<unsigned short>(static_cast<int>(day.year()));
  time.wMonth = static_cast<unsigned short>(static_cast<unsigned>(day.month()));
  time.wDay = static_cast<unsigned short>(static_cast<unsigned>(day.day()));
}

auto Fields(const SYSTEMTIME& time) {
  return std::tie(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond);
}

}  // namespace

std::optional<SYSTEMTIME> ParseDate(const std::string& text, Bound bound) {
  Scanner scanner(text);
  SYSTEMTIME time{};
  time.wYear = scanner.Digits(4);
  scanner.Require("-");
  time.wMonth = scanner.Digits(2);
  scanner.Require("-");
  time.wDay = scanner.Digits(2);
  if (scanner.AtEnd() && bound == Bound::kTo) {
    std::tie(time.wHour, time.wMinute, time.wSecond) = std::tuple(23, 59, 59);
  } else if (!scanner.AtEnd()) {
    scanner.Require(" T");
    time.wHour = scanner.Digits(2);
    if (scanner.Skip(":")) time.wMinute = scanner.Digits(2);
    if (scanner.Skip(":")) time.wSecond = scanner.Digits(2);
  }
  const bool plausible = time.wYear > 0 && DayOf(time).ok() && time.wHour < 24 &&
                         time.wMinute < 60 && time.wSecond < 60;
  if (!scanner.Ok() || !scanner.AtEnd() || !plausible) return std::nullopt;
  return time;
}

SYSTEMTIME RequireDate(const char* option, const std::string& text, Bound bound) {
  if (const auto date = ParseDate(text, bound)) return *date;
  throw UsageError(
      fmt::format("{} {}: a date looks like 2016-09-04 or \"2016-09-04 13:00\"", option, text));
}

SYSTEMTIME DaysBefore(const SYSTEMTIME& time, int days) {
  SYSTEMTIME before{};
  SetDay(before, std::chrono::sys_days(DayOf(time)) - std::chrono::days(days));
  return before;
}

bool IsEarlier(const SYSTEMTIME& left, const SYSTEMTIME& right) {
  return Fields(left) < Fields(right);
}

}  // namespace host
