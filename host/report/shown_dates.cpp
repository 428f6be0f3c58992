#include "host/report/shown_dates.h"

#include <algorithm>
#include <cstdio>

namespace host {
namespace {

constexpr PeriodNumber kDaysOfYear = 366;

SYSTEMTIME BeginOf(Period period, PeriodNumber number) {
  return SystemTimeOf(StartOf(period, number));
}

// The day of the newest record; none: there is no record.
std::optional<PeriodNumber> NewestDay(Database& database,
                                      const std::vector<StoredSection>& sections) {
  std::optional<PeriodNumber> newest;
  for (const StoredSection& section : sections) {
    const auto period = PeriodOf(section.kind);
    if (!period || section.records.empty()) continue;
    const PeriodRange extent = KeptExtent(database, section);
    if (SizeOf(extent) == 0) continue;
    const auto day = NumberOf(Period::kDay, StartOf(*period, extent.last));
    newest = std::max(newest, day);
  }
  return newest;
}

// A record that is dated by the end of the month belongs to it too; totals of the day before it are
// what the month begins with.
Selection MonthDates(Selection selection, PeriodNumber month) {
  const SYSTEMTIME begin = BeginOf(Period::kMonth, month);
  const PeriodNumber day = NumberOf(Period::kDay, TavOf(begin)).value_or(1);
  selection.from = BeginOf(Period::kDay, day - 1);
  selection.to = BeginOf(Period::kMonth, month + 1);
  return selection;
}

}  // namespace

std::optional<PeriodNumber> MonthOf(const std::string& text) {
  unsigned year = 0;
  unsigned month = 0;
  int length = 0;
  const int count = std::sscanf(text.c_str(), "%4u-%2u%n", &year, &month, &length);
  const bool whole = count == 2 && static_cast<std::size_t>(length) == text.size();
  if (!whole || year < 2000 || year > 2099 || month > 12) return std::nullopt;
  return NumberOf(Period::kMonth, {static_cast<unsigned short>(year),
                                   static_cast<unsigned char>(month), 1, 0, 0, 0});
}

Selection ShownDates(Database& database, const std::vector<StoredSection>& sections,
                     const ReportOptions& options) {
  Selection selection = options.selection;
  if (const auto month = MonthOf(options.statement)) return MonthDates(selection, *month);
  if (options.all || selection.from) return selection;
  // What a wrong clock dated ahead of now leaves the year where it is.
  const SYSTEMTIME end = selection.to.value_or(options.made);
  const auto newest = std::min(NewestDay(database, sections), NumberOf(Period::kDay, TavOf(end)));
  if (newest) selection.from = BeginOf(Period::kDay, *newest - kDaysOfYear);
  return selection;
}

Coverage Clipped(const Coverage& coverage, const Selection& selection) {
  if (!selection.from) return coverage;
  Coverage clipped = coverage;
  const auto first = NumberOf(coverage.period, TavOf(*selection.from));
  clipped.bounds.first = std::max(coverage.bounds.first, first.value_or(0));
  std::erase_if(clipped.ranges, [&](const CoverageRange& range) {
    return range.periods.last < clipped.bounds.first;
  });
  if (!clipped.ranges.empty()) {
    PeriodNumber& begin = clipped.ranges.front().periods.first;
    begin = std::max(begin, clipped.bounds.first);
  }
  return clipped;
}

}  // namespace host
