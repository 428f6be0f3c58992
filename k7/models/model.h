// What the models of the K7 instruments have in common and where they differ, as data.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "common/cp1251.h"
#include "k7/reads/archive_records.h"
#include "k7/reads/parameter_block.h"
#include "k7/session/introduction.h"
#include "k7/tables.h"

namespace k7 {

// Heat systems; the number is the channel byte of their requests. 0 is the part that systems
// share, and the only system of a model 521.
inline constexpr const char* kSystemNames[] = {
    common::kCp1251<"ОБЩ">.data(), common::kCp1251<"ТВ1">.data(), common::kCp1251<"ТВ2">.data()};
inline constexpr std::size_t kSystems = std::size(kSystemNames);

// Values that lie in consecutive parameters.
struct ParameterTable {
  std::uint16_t first;
  Columns columns;
  bool mayBeIdle = false;  // a state code tells that the system is switched off: nothing to read
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
  Introduction introduction;
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

}  // namespace k7
