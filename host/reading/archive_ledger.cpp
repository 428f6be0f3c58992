#include "host/reading/archive_ledger.h"

#include <algorithm>
#include <span>

namespace host {
namespace {

// So many periods in a row without a record are not there: at once, or when asked for again.
constexpr std::size_t kAbsentAtOnce = 24;
constexpr std::size_t kAbsentTwice = 3;

constexpr const char* kNeverAsked = "not asked for";
constexpr const char* kNoRecord = "the reply held no record";
constexpr std::size_t kMostReasons = 255;
constexpr unsigned char kMostEmpties = 255;

}  // namespace

ArchiveLedger::ArchiveLedger(Period period, PeriodRange range)
    : period_(period), range_(range), reasons_{kNeverAsked} {
  if (range.last >= range.first) {
    records_.resize(static_cast<std::size_t>(range.last - range.first + 1));
  }
}

void ArchiveLedger::Begin(PeriodNumber first) {
  next_ = first;
  asked_.reset();
}

ArchiveLedger::Record* ArchiveLedger::Find(PeriodNumber number) {
  if (number < range_.first || number > range_.last) return nullptr;
  return &records_[static_cast<std::size_t>(number - range_.first)];
}

// One that this reading has to do with.
ArchiveLedger::Record* ArchiveLedger::FindOpen(PeriodNumber number) {
  Record* record = Find(number);
  const bool known =
      record != nullptr && (record->state == State::kKept || record->state == State::kLearnt);
  return known ? nullptr : record;
}

void ArchiveLedger::Mark(const std::vector<PeriodRange>& ranges, State state) {
  for (const PeriodRange& range : ranges) {
    for (PeriodNumber number = range.first; number <= range.last; ++number) {
      if (Record* record = Find(number)) record->state = state;
    }
  }
}

void ArchiveLedger::Know(const KnownArchive& known) {
  Mark(known.kept, State::kKept);
  Mark(known.absent, State::kLearnt);
}

PeriodNumber ArchiveLedger::NumberAt(std::size_t index) const {
  return range_.first + static_cast<PeriodNumber>(index);
}

bool ArchiveLedger::IsOver(std::size_t index) const {
  return now_ && !IsEarlier(*now_, StartOf(period_, NumberAt(index) + 1));
}

bool ArchiveLedger::Receive(const TAVDT& date) {
  const auto number = NumberOf(period_, date);
  if (!number) return false;
  next_ = *number + 1;
  Record* record = Find(*number);
  if (record == nullptr) return false;
  if (record->state == State::kReceived || record->state == State::kKept) return false;
  record->state = State::kReceived;
  return true;
}

void ArchiveLedger::SetNotHeld(const TAVDT& date) {
  const auto number = NumberOf(period_, date);
  if (!number) return;
  next_ = *number + 1;
  Record* record = FindOpen(*number);
  if (record != nullptr && record->state != State::kReceived) record->state = State::kNotHeld;
}

void ArchiveLedger::SetNextNotHeld() { SetNotHeld(StartOf(period_, next_)); }

void ArchiveLedger::FailNext(const std::string& reason) { Miss(next_++, reason); }

// Whatever the instrument refuses that lies ahead of its clock is not there yet.
void ArchiveLedger::RefuseNext(const std::string& reason) {
  const TAVDT date = StartOf(period_, next_);
  if (now_ && IsEarlier(*now_, date)) {
    SetNextNotHeld();
  } else {
    FailNext(reason);
  }
}

void ArchiveLedger::Miss(PeriodNumber number, const std::string& reason) {
  Record* record = Find(number);
  if (record != nullptr && record->state == State::kMissing) record->reason = ReasonNumber(reason);
}

unsigned char ArchiveLedger::ReasonNumber(const std::string& reason) {
  const auto known = std::find(reasons_.begin(), reasons_.end(), reason);
  const auto number = static_cast<std::size_t>(known - reasons_.begin());
  if (known == reasons_.end() && number < kMostReasons) reasons_.push_back(reason);
  return static_cast<unsigned char>(std::min(number, kMostReasons - 1));
}

void ArchiveLedger::Ask(const TAVDT& date) {
  SettleAsked();
  asked_ = NumberOf(period_, date);
}

void ArchiveLedger::FailAsked(const std::string& reason) {
  if (asked_) Miss(*asked_, reason);
  asked_.reset();
}

void ArchiveLedger::SettleAsked() {
  if (!asked_) return;
  Record* record = FindOpen(*asked_);
  asked_.reset();
  if (record == nullptr || record->state == State::kReceived) return;
  record->state = State::kEmpty;
  record->reason = ReasonNumber(kNoRecord);
  if (record->empties < kMostEmpties) ++record->empties;
}

// Whether the instrument does not have them, by how many they are in a row.
bool ArchiveLedger::AreAbsent(std::size_t begin, std::size_t end) const {
  const std::size_t count = end - begin;
  if (count >= kAbsentAtOnce) return true;
  const auto run = std::span(records_).subspan(begin, count);
  return count >= kAbsentTwice && std::all_of(run.begin(), run.end(), [](const Record& record) {
           return record.empties > 1;
         });
}

// The end of the records from one on that stay without an answer though their period is over.
std::size_t ArchiveLedger::EndOfDoubt(std::size_t begin) const {
  std::size_t end = begin;
  while (end < records_.size() && records_[end].state == State::kEmpty && (!now_ || IsOver(end))) {
    ++end;
  }
  return end;
}

// What each record is in the end: none stays empty but for those in doubt.
std::vector<ArchiveLedger::State> ArchiveLedger::Results() const {
  std::vector<State> results;
  results.reserve(records_.size());
  for (std::size_t i = 0; i < records_.size(); ++i) {
    const bool notYet = records_[i].state == State::kEmpty && now_ && !IsOver(i);
    results.push_back(notYet ? State::kNotHeld : records_[i].state);
  }
  for (std::size_t begin = 0; now_ && begin < results.size(); ++begin) {
    const std::size_t end = EndOfDoubt(begin);
    if (end == begin) continue;
    if (AreAbsent(begin, end)) std::fill(&results[begin], &results[end - 1] + 1, State::kNotHeld);
    begin = end;
  }
  return results;
}

std::vector<PeriodRange> ArchiveLedger::RangesOf(State result) const {
  std::vector<PeriodRange> ranges;
  const std::vector<State> results = Results();
  for (std::size_t i = 0; i < results.size(); ++i) {
    const bool failed = results[i] == State::kMissing || results[i] == State::kEmpty;
    if (result == State::kMissing ? !failed : results[i] != result) continue;
    const PeriodNumber number = NumberAt(i);
    if (ranges.empty() || ranges.back().last + 1 != number) ranges.push_back({number, number});
    ranges.back().last = number;
  }
  return ranges;
}

std::vector<PeriodRange> ArchiveLedger::Gaps() const { return RangesOf(State::kMissing); }

bool ArchiveLedger::HasDoubt() const {
  const std::vector<State> results = Results();
  return std::find(results.begin(), results.end(), State::kEmpty) != results.end();
}

bool ArchiveLedger::HasUnasked() const {
  return std::any_of(records_.begin(), records_.end(), [](const Record& record) {
    return record.state == State::kMissing && record.reason == 0;
  });
}

std::vector<DateRange> ArchiveLedger::DatesOf(State result) const {
  std::vector<DateRange> dates;
  for (const PeriodRange& range : RangesOf(result)) {
    dates.push_back({StartOf(period_, range.first), StartOf(period_, range.last)});
  }
  return dates;
}

void ArchiveLedger::Tell(SectionAccount& account) const {
  const std::vector<State> results = Results();
  const auto count = [&](State state) {
    return static_cast<std::size_t>(std::count(results.begin(), results.end(), state));
  };
  account.expected = results.size() - count(State::kKept) - count(State::kLearnt);
  account.received = count(State::kReceived);
  account.notHeld = count(State::kNotHeld);
  account.failed = account.expected - account.received - account.notHeld;
  account.absent = DatesOf(State::kNotHeld);
  account.missing = DatesOf(State::kMissing);
  for (std::size_t i = 0; i < results.size(); ++i) {
    if (results[i] != State::kMissing && results[i] != State::kEmpty) continue;
    account.reason = reasons_[records_[i].reason];
    break;
  }
}

}  // namespace host
