// What the models of the K7 instruments have in common and where they differ, as data.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "k7/archive_records.h"
#include "k7/database_layouts.h"
#include "k7/tables.h"

namespace k7 {

// Heat systems; the number is the channel byte of their requests. 0 is the part that systems
// share, and the only system of a model 521.
inline constexpr std::size_t kSystems = 3;
const char* SystemName(std::uint8_t system);

// Values that lie in consecutive parameters.
struct ParameterTable {
  std::uint16_t first;
  Columns columns;
  const char* errorSubject;  // of the message about a reply to another command
  bool mayBeIdle;            // a state code tells that the system is switched off: nothing to read
};

struct ArchiveTable {
  Columns columns;
  Closing closing;
};

struct Database {
  Columns columns;
  std::span<const ParameterBlock> blocks;
};

struct Model {
  std::uint32_t devType;
  // The basic read: the serial number, one or two units, two settings.
  std::span<const std::uint16_t> basicParameters;
  bool ownHeatUnit;  // two units; else the pressure unit serves for both
  std::span<const std::uint8_t> systems;
  bool commonDatabase;  // beside those of the systems

  ParameterTable current;
  ParameterTable totals;
  bool endsFailedRead;  // an end marker follows a failed read of current values or totals

  bool datedRecords;  // archive records carry their time and date as items of their own
  ArchiveTable periodic;
  ArchiveTable control;
  std::array<Database, kSystems> databases;  // by system
};

// Null when the type is none that this driver reads.
const Model* FindModel(std::uint32_t devType);

// How an instrument introduces itself.
struct Introduction {
  std::uint16_t code;  // as it answers
  std::uint32_t devType;
  const char* name;
};
// Null for an unknown code.
const Introduction* FindIntroduction(std::uint16_t code);

}  // namespace k7
