// Stands between the runs of the driver and the sinks, and makes one reading of them: sections
// belong to their part of the instrument, no row of an archive comes twice and none that was not
// asked for.
#pragma once

#include <atomic>
#include <set>
#include <string>

#include "host/fields/unit_settings.h"
#include "host/reading/follow_labels.h"
#include "host/reading/known_records.h"
#include "host/reading/ledger.h"
#include "host/reading/wrapped_listener.h"

namespace host {

class Assembler final : public WrappedListener {
 public:
  // Both must outlive it. known: null when all that is asked for is to be read.
  Assembler(RunListener& sinks, const ReadSettings& asked, KnownRecords* known = nullptr);

  // What is known of the instrument that is expected, or of the one that answers instead.
  void Plan(KnownInstrument instrument);
  // Another instrument answers: what comes of this run is dropped. From any thread.
  bool MeetsAnother() const { return meetsAnother_; }
  void PlanForOther() { Plan(std::move(other_)); }

  // A run of the driver with these settings begins, or ended.
  void BeginDriverRun(const ReadSettings& settings);
  void EndDriverRun() { ledger_.End(); }
  const UnitSettings& Units() const { return units_; }
  const Ledger& Records() const { return ledger_; }
  // What the sinks were told.
  const StreamCounts& Counts() const { return counts_; }

  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void EndSection(const Section& section) override;
  void Tell(const Message& message) override;

 private:
  void Meet(const Title& title);
  void BeginOnce();
  bool IsWanted(const Section& section) const;

  ReadSettings asked_;
  KnownRecords* known_;
  KnownInstrument expected_;
  KnownInstrument other_;
  std::atomic<bool> meetsAnother_ = false;
  Ledger ledger_;
  FollowLabels labels_;
  UnitSettings units_;
  StreamCounts counts_;
  bool anyRun_ = false;
  bool repeated_ = false;        // the run is not the first one
  std::set<std::string> names_;  // of the sections that the sinks know
  std::string number_;           // of the instrument, once it was told
  Section section_;              // the open one, as the sinks know it
  bool begun_ = false;           // they do
  Cells cells_;
};

}  // namespace host
