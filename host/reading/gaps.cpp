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

ReadSettings RunFor(const ReadSettings& asked, tav::ReadGroup group, Period period,
                    const PeriodRange& range) {
  ReadSettings run = asked;
  run.groups = std::string(1, static_cast<char>(group));
  run.from = SystemTimeOf(StartOf(period, range.first));
  const bool endLeftOut = period == Period::kDay && asked.kind == tav::Mode::kOlder;
  run.to = SystemTimeOf(StartOf(period, endLeftOut ? range.last + 1 : range.last));
  return run;
}

}  // namespace

std::vector<ReadSettings> Ledger::Gaps() const {
  std::vector<ReadSettings> runs;
  ReadSettings blocks = asked_;
  blocks.groups.clear();
  const bool doubt = HasDoubt();
  for (const ReadGroupName& group : kReadGroups) {
    std::vector<PeriodRange> ranges;
    std::optional<Period> period;
    for (const Entry& entry : entries_) {
      if (entry.idle || entry.planned.group != group.group) continue;
      if (IsMissing(entry, doubt)) blocks.groups = blocks.groups + static_cast<char>(group.group);
      if (!entry.archive) continue;
      period = entry.archive->Of();
      const std::vector<PeriodRange> own = entry.archive->Gaps();
      ranges.insert(ranges.end(), own.begin(), own.end());
    }
    for (const PeriodRange& range : Join(std::move(ranges))) {
      runs.push_back(RunFor(asked_, group.group, *period, range));
    }
  }
  if (!blocks.groups.empty()) runs.insert(runs.begin(), blocks);
  return runs;
}

}  // namespace host
