// What a reading asked for, and what has come of it so far: fed with the messages and rows of one
// or more runs of the driver.
#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/reading/account.h"
#include "host/reading/archive_ledger.h"
#include "host/reading/known_records.h"
#include "host/reading/model_plan.h"
#include "host/reading/record_events.h"
#include "host/reading/settings.h"
#include "host/stream/cell.h"

namespace host {

class Ledger {
 public:
  // known: only what that lacks is expected, rather than all that is asked for.
  explicit Ledger(ReadSettings asked, std::optional<KnownInstrument> known = std::nullopt);

  // A run of the driver with these settings begins, or ended.
  void Begin(const ReadSettings& run);
  void End() { FinishSection(); }
  void Tell(const Message& message);
  // Whether a row was asked for and is new. What is no value is taken out of its cells, and of
  // parameters that came in pieces those of an earlier row are put in.
  bool Take(const Section& section, Cells& cells);

  // Whether the instrument has told its model; without it there are no accounts.
  bool Identified() const { return plan_ != nullptr; }
  // Whether only what earlier readings lack is expected.
  bool IsOfGaps() const { return known_.has_value(); }
  std::vector<SectionAccount> Accounts() const;
  std::size_t Missing() const;  // records, over all accounts
  // Whether records are missing that the driver never came to.
  bool HasUnasked() const;
  // The run that a reading begins with; none: there is nothing to read.
  std::optional<ReadSettings> FirstRun() const;
  // Runs that would bring what is missing, and nothing besides.
  std::vector<ReadSettings> Gaps() const;

 private:
  struct Entry {
    PlannedSection planned;
    std::optional<ArchiveLedger> archive;  // none: a block of values or a log
    bool idle = false;                     // its part is not worth reading
    bool received = false;                 // of blocks and logs
    std::string reason{};                  // why it was not
    Cells parameters{};                    // of a database: what came so far
    std::set<std::string> entries{};       // of a log: what came
  };

  bool IsK7() const { return asked_.kind == tav::Mode::kK7; }
  void Identify(const ModelPlan& plan);
  PeriodRange UnknownRange(Period period) const;
  std::string UndatedGroups(bool archives) const;
  std::vector<PeriodRange> GapsOf(tav::ReadGroup group) const;
  std::string MissingGroups() const;
  bool HasEntry(tav::ReadGroup group) const;
  Entry* Find(tav::TitleKind kind, std::string_view name);
  void SetNow(const TAVDT& now);
  void BeginPart(const std::string& name);
  void BeginSection(const RecordEvent& event);
  void FinishSection();
  void Excuse(const std::string& part);
  void FailPart(const std::string& part);
  void TellAttempt(const RecordEvent& event, const Message& message);
  void TellArchive(const RecordEvent& event);
  void LoseSection(const std::string& reason);
  bool TakeValues(Entry& entry, const Cells& cells);
  bool TakeParameters(Entry& entry, Cells& cells);
  bool TakeEntry(Entry& entry, const Cells& cells);
  bool HasDoubt() const;
  bool IsMissing(const Entry& entry, bool doubt) const;
  SectionAccount AccountOf(const Entry& entry, bool doubt) const;

  ReadSettings asked_;
  std::optional<KnownInstrument> known_;
  ReadSettings run_;
  const ModelPlan* plan_ = nullptr;
  std::vector<Entry> entries_;
  std::string part_;
  Entry* section_ = nullptr;     // that is being read
  bool receivedBefore_ = false;  // in an earlier run
  std::string reason_;           // the last error since it began
  bool emptied_ = false;         // replies came without their values
};

// The period of an archive that settings ask for, as the driver goes through it.
PeriodRange RangeOf(const ReadSettings& settings, Period period);

// The one that is expected of a reading that is asked for.
PeriodRange ExpectedOf(const ReadSettings& asked, Period period);

// Settings for the driver that bring what is asked for: the last day of the older protocol's daily
// archive is read only when the period ends behind it, and its parameters, which tell the units,
// cost nothing on the line.
ReadSettings DriverSettings(const ReadSettings& asked);

}  // namespace host
