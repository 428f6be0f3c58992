// The sections of a system: each is asked for, decoded and written to the host.
#pragma once

#include <cstdint>

#include "TKSplDrv/driver.h"
#include "k7/models/catalogue.h"
#include "k7/reading/archive_kinds.h"
#include "k7/session/requests.h"
#include "k7/session/session.h"
#include "k7/tables.h"

namespace k7 {

// All reads return whether the section was read to its end; the link and the session have said why
// not. A record that the host refuses ends a read as a failed one.
class Sections {
 public:
  // All outlive the sections. identity and model: of the instrument that is read.
  Sections(TavDrvV1& driver, Requests& requests, RecordStream& out, const Identity& identity,
           const Model& model)
      : driver_(driver), requests_(requests), out_(out), identity_(identity), model_(model) {}

  bool ReadCurrent(std::uint8_t system);
  bool ReadTotals(std::uint8_t system);
  // One request for each record of the host's period.
  bool ReadPeriodic(std::uint8_t system, Kind kind);
  // One request for the host's whole period.
  bool ReadEvents(std::uint8_t system, Kind kind);
  // One row of one entry for each parameter; a block that failed leaves the row shorter.
  bool ReadDatabase(std::uint8_t system);

 private:
  bool ReadTable(std::uint8_t system, const ParameterTable& table, const char* section,
                 const char* errorSubject);
  bool ReadPeriod(std::uint8_t system, const ArchiveKind& kind, const TAVDT& from);
  const ArchiveTable& TableOf(Kind kind) const;
  void StartArchive(std::uint8_t system, const ArchiveKind& kind);
  template <typename Write>
  bool WriteRecords(Write write);
  void WriteArchiveRecord(const ArchiveKind& kind, const Stamp& stamp, TlvWalk& items);
  void WriteEvent(const Stamp& stamp, TlvWalk& items);
  bool FailQuery(const TAVDT& date);
  ChosenUnits Units() const;

  TavDrvV1& driver_;
  Requests& requests_;
  RecordStream& out_;
  const Identity& identity_;
  const Model& model_;
  std::array<std::uint8_t, kLargestRecord> space_{};  // of the record under construction
};

}  // namespace k7
