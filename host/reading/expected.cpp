// What a reading is expected to bring, and the run that it begins with.
#include <utility>

#include "host/reading/ledger.h"

namespace host {
namespace {

using tav::ReadGroup;

bool Asks(const std::string& groups, ReadGroup group) {
  return groups.find(static_cast<char>(group)) != std::string::npos;
}

ReadGroup GroupOf(Period period) {
  switch (period) {
    case Period::kHour:
      return ReadGroup::kHours;
    case Period::kDay:
      return ReadGroup::kDays;
    case Period::kMonth:
      break;
  }
  return ReadGroup::kMonths;
}

bool IsArchive(ReadGroup group) {
  return group == ReadGroup::kHours || group == ReadGroup::kDays || group == ReadGroup::kMonths;
}

}  // namespace

PeriodRange RangeOf(const ReadSettings& settings, Period period) {
  const auto first = NumberOf(period, TavOf(settings.from));
  const auto last = NumberOf(period, TavOf(settings.to));
  if (!first || !last) return {};
  const bool endLeftOut = period == Period::kDay && settings.kind == tav::Mode::kOlder;
  return {*first, endLeftOut ? *last - 1 : *last};
}

ReadSettings DriverSettings(const ReadSettings& asked) {
  ReadSettings settings = asked;
  if (asked.kind != tav::Mode::kOlder) return settings;
  if (!Asks(settings.groups, ReadGroup::kDatabase)) {
    settings.groups += static_cast<char>(ReadGroup::kDatabase);
  }
  const SYSTEMTIME& to = asked.to;
  const bool wholeDay = to.wHour == 23 && to.wMinute == 59;
  if (wholeDay && Asks(settings.groups, ReadGroup::kDays)) {
    const auto day = NumberOf(Period::kDay, TavOf(to));
    if (day) settings.to = SystemTimeOf(StartOf(Period::kDay, *day + 1));
  }
  return settings;
}

// The days that are expected follow the driver's end, all others the one that was asked for.
PeriodRange ExpectedOf(const ReadSettings& asked, Period period) {
  return RangeOf(period == Period::kDay ? DriverSettings(asked) : asked, period);
}

Ledger::Ledger(ReadSettings asked, std::optional<KnownInstrument> known)
    : asked_(std::move(asked)), known_(std::move(known)) {
  if (!known_) return;
  if (known_->from) asked_.from = *known_->from;
  for (const KnownArchive& archive : known_->archives) {
    const Period period = PeriodOf(archive.kind).value();
    const ReadGroup group = GroupOf(period);
    if (!Asks(asked_.groups, group)) continue;
    entries_.push_back({{archive.kind, archive.section, group, ""}, std::nullopt});
    entries_.back().archive.emplace(period, archive.wanted).Know(archive);
  }
}

// Of an archive that is not known to be there.
PeriodRange Ledger::UnknownRange(Period period) const {
  return known_ && !known_->from ? PeriodRange{} : ExpectedOf(asked_, period);
}

void Ledger::Identify(const ModelPlan& plan) {
  part_ = plan.sections.front().part;
  if (plan_ != nullptr) return;
  plan_ = &plan;
  std::vector<Entry> entries;
  for (const PlannedSection& planned : plan.sections) {
    if (!Asks(asked_.groups, planned.group)) continue;
    Entry* known = Find(planned.kind, planned.name);
    entries.push_back(known != nullptr ? std::move(*known) : Entry{});
    entries.back().planned = planned;
    const auto period = PeriodOf(planned.kind);
    if (known == nullptr && period) {
      entries.back().archive.emplace(*period, UnknownRange(*period));
    }
  }
  entries_ = std::move(entries);
}

// Letters of what has no dates, which goes with any run, and of archives that nothing is known of.
std::string Ledger::UndatedGroups(bool archives) const {
  std::string groups;
  for (const ReadGroupName& known : kReadGroups) {
    const bool undated = IsArchive(known.group) ? archives && !HasEntry(known.group) : true;
    if (undated && Asks(asked_.groups, known.group)) groups += static_cast<char>(known.group);
  }
  return groups;
}

bool Ledger::HasEntry(ReadGroup group) const {
  for (const Entry& entry : entries_) {
    if (entry.planned.group == group) return true;
  }
  return false;
}

std::optional<ReadSettings> Ledger::FirstRun() const {
  if (!known_) return DriverSettings(asked_);
  const std::vector<ReadSettings> gaps = Gaps();
  ReadSettings run = asked_;
  if (gaps.empty()) {
    run.groups = UndatedGroups(known_->from.has_value());
  } else {
    run = gaps.front();
    run.groups += UndatedGroups(false);
  }
  if (run.groups.empty()) return std::nullopt;
  return DriverSettings(run);
}

}  // namespace host
