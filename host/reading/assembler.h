// Stands between the runs of the driver and the sinks, and makes one reading of them: sections
// belong to their part of the instrument, no row of an archive comes twice and none that was not
// asked for.
#pragma once

#include <set>
#include <string>

#include "host/fields/unit_settings.h"
#include "host/reading/follow_labels.h"
#include "host/reading/ledger.h"
#include "host/reading/wrapped_listener.h"

namespace host {

class Assembler final : public WrappedListener {
 public:
  // sinks must outlive it.
  Assembler(RunListener& sinks, const ReadSettings& asked);

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
  void BeginOnce();
  bool IsWanted(const Section& section) const;

  ReadSettings asked_;
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
