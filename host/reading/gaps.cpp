// From what is missing to the runs of the driver that would bring it.
#include <algorithm>

#include "host/reading/ledger.h"

namespace host {
namespace {

// Ranges of several parts of an instrument, which the driver reads together.
std::vector<PeriodRange> Join(std::vector<PeriodRange> ranges) {
  std::sort(ranges.begin(), ranges.end(), [](const PeriodRange& left, const PeriodRange& right) {
    return left.first < right.first;
  });
  std::vector<PeriodRange> joined;
  for (const PeriodRange& range : ranges) {
    if (joined.empty() || range.first > joined.back().last + 1) joined.push_back(range);
    joined.back().last = std::max(joined.back().last, range.last);
  }
  return joined;
}

// Hours in any of which a run may begin, or end, and ask for the same records.
PeriodRange HoursOf(Period period, PeriodNumber number) {
  const auto hour = [&](PeriodNumber of) {
    return NumberOf(Period::kHour, StartOf(period, of)).value_or(0);
  };
  return {hour(number), hour(number + 1) - 1};
}

PeriodRange Common(const PeriodRange& left, const PeriodRange& right) {
  return {std::max(left.first, right.first), std::min(left.last, right.last)};
}

// A run for archives whose ranges begin and end together.
struct GapRun {
  std::string groups;
  PeriodRange from;
  PeriodRange to;
  PeriodNumber records = 0;
};

GapRun RunFor(const ReadSettings& asked, tav::ReadGroup group, Period period,
              const PeriodRange& range) {
  const bool endLeftOut = period == Period::kDay && asked.kind == tav::Mode::kOlder;
  return {std::string(1, static_cast<char>(group)), HoursOf(period, range.first),
          HoursOf(period, endLeftOut ? range.last + 1 : range.last), range.last - range.first + 1};
}

// Each run has the instrument identified anew, so those that can be one are.
void Add(std::vector<GapRun>& runs, const GapRun& run) {
  for (GapRun& other : runs) {
    const PeriodRange from = Common(other.from, run.from);
    const PeriodRange to = Common(other.to, run.to);
    const bool same = other.groups.find(run.groups) != std::string::npos;
    if (same || from.last < from.first || to.last < to.first) continue;
    other = {other.groups + run.groups, from, to, other.records + run.records};
    return;
  }
  runs.push_back(run);
}

void Sort(std::vector<GapRun>& runs, GapOrder order) {
  if (order == GapOrder::kAsRead) return;
  std::stable_sort(runs.begin(), runs.end(), [order](const GapRun& left, const GapRun& right) {
    return order == GapOrder::kLongest ? left.records > right.records
                                       : left.to.first > right.to.first;
  });
}

ReadSettings SettingsOf(const ReadSettings& asked, const GapRun& run) {
  ReadSettings settings = asked;
  settings.groups = run.groups;
  settings.from = SystemTimeOf(StartOf(Period::kHour, run.from.first));
  settings.to = SystemTimeOf(StartOf(Period::kHour, run.to.first));
  return settings;
}

}  // namespace

// Of the archives of a group.
std::vector<PeriodRange> Ledger::GapsOf(tav::ReadGroup group) const {
  std::vector<PeriodRange> ranges;
  for (const Entry& entry : entries_) {
    if (entry.idle || entry.planned.group != group || !entry.archive) continue;
    const std::vector<PeriodRange> own = entry.archive->Gaps();
    ranges.insert(ranges.end(), own.begin(), own.end());
  }
  return Join(std::move(ranges));
}

std::string Ledger::MissingGroups() const {
  std::string groups;
  const bool doubt = HasDoubt();
  for (const Entry& entry : entries_) {
    if (IsMissing(entry, doubt)) groups += static_cast<char>(entry.planned.group);
  }
  return groups;
}

std::vector<ReadSettings> Ledger::Gaps() const {
  constexpr std::pair<tav::ReadGroup, Period> kArchives[] = {
      {tav::ReadGroup::kMonths, Period::kMonth},
      {tav::ReadGroup::kDays, Period::kDay},
      {tav::ReadGroup::kHours, Period::kHour}};
  std::vector<GapRun> gaps;
  for (const auto& [group, period] : kArchives) {
    for (const PeriodRange& range : GapsOf(group)) {
      Add(gaps, RunFor(asked_, group, period, range));
    }
  }
  Sort(gaps, known_ ? known_->order : GapOrder::kAsRead);
  std::vector<ReadSettings> runs;
  ReadSettings blocks = asked_;
  blocks.groups = MissingGroups();
  if (!blocks.groups.empty()) runs.push_back(blocks);
  for (const GapRun& run : gaps) runs.push_back(SettingsOf(asked_, run));
  return runs;
}

}  // namespace host
