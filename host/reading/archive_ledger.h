// What has come of the records of an archive section.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/reading/account.h"
#include "host/reading/known_records.h"
#include "host/reading/periods.h"

namespace host {

// A K7 reply without a record may mean that there is none, or that what the instrument sent was
// lost. It means that there is none where the period was not over by the instrument's clock, and
// where several periods in a row stay without a record: what is lost is lost here and there.
class ArchiveLedger {
 public:
  // range: what was asked for.
  ArchiveLedger(Period period, PeriodRange range);

  // What earlier readings have brought is no part of what comes of this one.
  void Know(const KnownArchive& known);

  // A run of the driver goes through the archive from a period on.
  void Begin(PeriodNumber first);
  // By the instrument's clock.
  void SetNow(const TAVDT& now) { now_ = now; }

  // Whether the record was asked for and has not come before.
  bool Receive(const TAVDT& date);
  void SetNotHeld(const TAVDT& date);
  // The record behind the last one that is settled: it is not held, failed, or was refused.
  void SetNextNotHeld();
  void FailNext(const std::string& reason);
  void RefuseNext(const std::string& reason);
  // Of K7: a record is asked for. The one before has had its reply.
  void Ask(const TAVDT& date);
  void FailAsked(const std::string& reason);
  void SettleAsked();

  Period Of() const { return period_; }
  const PeriodRange& Range() const { return range_; }
  // What to ask for again.
  std::vector<PeriodRange> Gaps() const;
  // Whether a reply without a record looks like a lost one.
  bool HasDoubt() const;
  // Whether a record was never asked for.
  bool HasUnasked() const;
  // Fills in the counts and dates.
  void Tell(SectionAccount& account) const;

 private:
  enum class State : unsigned char {
    kMissing,
    kReceived,
    kNotHeld,
    kEmpty,  // a reply without a record
    kKept,   // by earlier readings,
    kLearnt  // by them too: not held
  };
  struct Record {
    State state = State::kMissing;
    unsigned char empties = 0;  // replies without a record
    unsigned char reason = 0;   // in reasons_
  };

  Record* Find(PeriodNumber number);
  Record* FindOpen(PeriodNumber number);
  void Mark(const std::vector<PeriodRange>& ranges, State state);
  PeriodNumber NumberAt(std::size_t index) const;
  bool IsOver(std::size_t index) const;
  void Miss(PeriodNumber number, const std::string& reason);
  unsigned char ReasonNumber(const std::string& reason);
  std::vector<State> Results() const;
  std::size_t EndOfDoubt(std::size_t begin) const;
  bool AreAbsent(std::size_t begin, std::size_t end) const;
  std::vector<PeriodRange> RangesOf(State result) const;
  std::vector<DateRange> DatesOf(State result) const;

  Period period_;
  PeriodRange range_;
  std::vector<Record> records_;
  std::vector<std::string> reasons_;
  std::optional<TAVDT> now_;
  PeriodNumber next_ = 0;
  std::optional<PeriodNumber> asked_;
};

}  // namespace host
