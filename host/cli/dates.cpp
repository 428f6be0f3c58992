#include "host/cli/dates.h"

#include <fmt/format.h>

#include <charconv>
#include <chrono>
#include <optional>
#include <string_view>
#include <tuple>

#include "host/reading/settings.h"

namespace host {
namespace {

using std::chrono::year_month_day;

constexpr int kFirstYear = 2000;
constexpr int kLastYear = 2099;

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

// The numbers of a text of the right form, whatever they are.
std::optional<SYSTEMTIME> Scan(const std::string& text, Bound bound) {
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
  if (!scanner.Ok() || !scanner.AtEnd()) return std::nullopt;
  return time;
}

constexpr const char* kForm = "a date looks like 2016-09-04 or \"2016-09-04 13:00\"";

// Why there is no such moment, or none that an instrument can be asked for; empty when there is.
std::string Objection(const SYSTEMTIME& time) {
  // Both protocols count years in one byte, so that a year of another century would be asked for
  // as one of this.
  if (time.wYear < kFirstYear || time.wYear > kLastYear) {
    return fmt::format("the instruments have the years {} to {}", kFirstYear, kLastYear);
  }
  if (!DayOf(time).month().ok()) return fmt::format("there is no month {}", time.wMonth);
  if (!DayOf(time).ok()) {
    return fmt::format("{}-{:02} has no day {}", time.wYear, time.wMonth, time.wDay);
  }
  if (time.wHour > 23 || time.wMinute > 59 || time.wSecond > 59) {
    return "the day ends with 23:59:59";
  }
  return {};
}

}  // namespace

SYSTEMTIME RequireDate(const char* option, const std::string& text, Bound bound) {
  const auto date = Scan(text, bound);
  const std::string objection = date ? Objection(*date) : kForm;
  if (!objection.empty()) throw UsageError(fmt::format("{} {}: {}", option, text, objection));
  return *date;
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
