// What is read of an instrument, in which order.
#pragma once

#include <cstdint>

#include "TKSplDrv/driver.h"
#include "k7/reading/sections.h"
#include "k7/tables.h"

namespace k7 {

class Plan {
 public:
  // All outlive the plan.
  Plan(TavDrvV1& driver, RecordStream& out, Sections& sections)
      : driver_(driver), out_(out), sections_(sections) {}

  // Every group of one system that the host asked for. False when the current values or the totals
  // failed, the host asked to stop (ReadStop was then called) or refused a record.
  bool ReadPlan(std::uint8_t system);
  // The database that the systems share, when the host asked for databases. False when the host
  // asked to stop or refused a record, as above; a failed read is only reported.
  bool ReadCommonDatabase();

 private:
  // Which text reports that a read succeeded. The databases' texts are swapped: intended.
  enum class Report { kPlain, kSwapped };

  bool Stopped();
  template <typename Read>
  bool Step(const char* subject, Report report, Read read);
  bool ReadCurrentAndTotals(std::uint8_t system);
  bool ReadPeriodicArchives(std::uint8_t system);
  bool ReadDatabaseAndLogs(std::uint8_t system);
  bool ReadLog(std::uint8_t system, Kind kind, const char* subject);

  TavDrvV1& driver_;
  RecordStream& out_;
  Sections& sections_;
};

}  // namespace k7
