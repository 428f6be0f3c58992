#include "host/output/ranges.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>

namespace host {
namespace {

bool IsSameDay(const TAVDT& left, const TAVDT& right) {
  return std::tuple(unsigned{left.year}, left.month, left.day) ==
         std::tuple(unsigned{right.year}, right.month, right.day);
}

std::string TimeOfDay(const TAVDT& date) {
  return fmt::format("{:02}:{:02}", date.hour, date.minute);
}

// ": 2016-09-01 03:00"; empty for what has no dates.
std::string Listed(tav::TitleKind kind, const std::vector<DateRange>& ranges, std::size_t most) {
  return ranges.empty() ? std::string() : ": " + RangesText(kind, ranges, most);
}

}  // namespace

std::string RecordDateText(tav::TitleKind kind, const TAVDT& date) {
  std::string month = fmt::format("{:04}-{:02}", unsigned{date.year}, date.month);
  if (kind == tav::TitleKind::kMonthly) return month;
  const std::string day = fmt::format("{}-{:02}", month, date.day);
  return kind == tav::TitleKind::kDaily ? day : day + ' ' + TimeOfDay(date);
}

std::string RangeText(tav::TitleKind kind, const DateRange& range) {
  std::string first = RecordDateText(kind, range.first);
  const std::string last = RecordDateText(kind, range.last);
  if (first == last) return first;
  const bool withinDay = kind == tav::TitleKind::kHourly && IsSameDay(range.first, range.last);
  return first + " to " + (withinDay ? TimeOfDay(range.last) : last);
}

std::string RangesText(tav::TitleKind kind, const std::vector<DateRange>& ranges,
                       std::size_t most) {
  std::string text;
  const std::size_t shown = std::min(most, ranges.size());
  for (std::size_t i = 0; i < shown; ++i) {
    if (i > 0) text += ", ";
    text += RangeText(kind, ranges[i]);
  }
  if (shown < ranges.size()) text += fmt::format(" and {} more", ranges.size() - shown);
  return text;
}

std::string MissingText(const SectionAccount& account, std::size_t most) {
  if (account.failed == 0) return {};
  return fmt::format("missing {} of {}{}{}", account.failed, account.expected,
                     Listed(account.kind, account.missing, most),
                     account.reason.empty() ? "" : " (" + account.reason + ')');
}

std::string NotHeldText(const SectionAccount& account, std::size_t most) {
  if (account.notHeld == 0) return {};
  return fmt::format("the instrument does not hold {} of {}{}", account.notHeld, account.expected,
                     Listed(account.kind, account.absent, most));
}

}  // namespace host
