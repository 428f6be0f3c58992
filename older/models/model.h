// What a model is: identity, tables of columns, addresses, message texts and progress weights. The
// skeleton in older/reading runs a description; the few functions that only one model has stand
// beside it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "older/reads/archive.h"
#include "older/reads/block.h"
#include "older/reads/log.h"

namespace older {

// First text of a section's start message; null: "Start Read " and the name of the part being read,
// "ОВ" for the instrument, "ТВ1" and "ТВ2" for its heat systems.
using StartText = const char*;

struct DatabaseSection {
  Block block;
  StartText start;
  const char* startName;  // second text of the start message
  bool noticeAfter = false;
};

struct OperativeSection {
  Columns layout;                 // the columns of all its blocks
  std::span<const Block> blocks;  // current values, then totals; each one data record of the row
  const char* startName;
  const char* continuousTitle;
};

struct ArchiveSection {
  ArchiveRecord record;
  const char* startName;
};

struct LogSection {
  Log log;
  std::uint16_t place[kHeatSystems];  // flash byte addresses by heat system
};

// What progress is counted in: 3, and an hour, day or month each for the archives wanted, and
// these.
struct ProgressWeights {
  int database;
  int operative;
  bool doubled;      // units * 2 + 3
  bool beforeClock;  // planned before the clock is read
  int clock;         // steps when the clock is read
  int databaseRead;  // steps when the instrument's database is read
};

// The heat systems of an instrument that has several, each with a session, a database and archives
// of its own.
struct HeatSystems {
  int count;
  DatabaseSection database;
  Field mode;         // the mode code, in its database,
  Field entryNumber;  // and the number of its entry
};

struct Model {
  Identity identity;
  const char* greeting;     // "521" / "Th"
  const char* sectionText;  // null: left as it is
  ProgressWeights progress;
  DatabaseSection database;                 // of the instrument
  Field number;                             // the serial number, in its database,
  Field mode = {};                          // and the mode code, where there is one heat system
  std::optional<HeatSystems> systems = {};  // none: one, without a session of its own
  StartText start;                          // of the sections after the database
  OperativeSection operative;
  ArchiveSection archives[3];  // by ArchiveKind
  std::span<const LogSection> logs = {};
  // Keeps what later layouts need of the instrument's database; null: nothing.
  void (*keepSettings)(TKSplImpl& reader, std::span<const std::uint8_t> database);
  ChosenUnits (*units)(const TKSplImpl& reader, int system);
};

}  // namespace older
