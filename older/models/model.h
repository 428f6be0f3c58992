// What a model is: tables of columns, addresses, message texts and progress weights. The skeleton
// in older/reading runs a description; the few functions that only one model has stand in its file.
#pragma once

#include <cstdint>
#include <span>

#include "older/reader_state.h"
#include "older/session/attempts.h"
#include "older/tables.h"

namespace older {

// --- Blocks that are read as a whole ---

struct Block;

// Reads the block of a heat system (1 or 2) into record, which is RecordSize(block.columns) long,
// under the host's attempts.
using ReadBlock = ReadResult (*)(TKSplImpl& reader, const Block& block, int system,
                                 std::span<std::uint8_t> record);

// A parameter database, current values or totals.
struct Block {
  Columns columns;
  ReadBlock read;
  const char* attempts;             // second text of the reports of failed attempts
  const char* failure;              // second text of the reader's own error message
  std::uint16_t place[2] = {0, 0};  // by heat system: address or page, as read takes it
  bool reopensSession = false;      // between two attempts
};

inline constexpr std::size_t kLargestDatabase = 322;  // bytes of a record
inline constexpr std::size_t kLargestOperative = 92;  // bytes of all blocks

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

// --- Archives ---

// Fills a record from the reply's data; the first column, DT, is already there.
using ConvertArchive = void (*)(Columns columns, std::span<const std::uint8_t> reply,
                                std::span<std::uint8_t> record);

inline constexpr std::size_t kLargestArchiveRecord = 76;
inline constexpr std::size_t kLargestArchiveReply = 64;

struct ArchiveRecord {
  Columns columns;
  std::uint8_t replySize;  // data bytes
  ConvertArchive convert;
};

struct ArchiveSection {
  ArchiveRecord record;
  const char* startName;
};

// --- Change and situation logs ---

// Flash byte addresses by heat system.
struct LogAddresses {
  std::uint16_t changes[2];
  std::uint16_t situations[2];
};

// --- The model ---

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

struct Model {
  TypeCode type;
  const char* greeting;     // "521" / "Th"
  const char* sectionText;  // null: left as it is
  ProgressWeights progress;
  DatabaseSection database;               // of the instrument
  const DatabaseSection* systemDatabase;  // of each of two heat systems; null: there is only one,
                                          // without a session of its own
  StartText start;                        // of the sections after the database
  OperativeSection operative;
  ArchiveSection archives[3];  // by ArchiveKind
  bool tellsArchives;          // "Data read found" and "Data not found"
  const LogAddresses* logs;    // null: none
  // Keeps what later layouts need of the instrument's database; null: nothing.
  void (*keepSettings)(TKSplImpl& reader, std::span<const std::uint8_t> database);
  ChosenUnits (*units)(const TKSplImpl& reader, int system);
};

constexpr std::size_t RecordSize(const OperativeSection& section) {
  std::size_t size = 0;
  for (const Block& block : section.blocks) size += RecordSize(block.columns);
  return size;
}

// Whether every record of a model fits the readers' buffers, and its blocks make up their layout.
constexpr bool FitsTheReader(const Model& model) {
  for (const ArchiveSection& section : model.archives) {
    if (RecordSize(section.record.columns) > kLargestArchiveRecord) return false;
    if (section.record.replySize > kLargestArchiveReply) return false;
  }
  const bool systemFits = model.systemDatabase == nullptr ||
                          RecordSize(model.systemDatabase->block.columns) <= kLargestDatabase;
  return systemFits && RecordSize(model.database.block.columns) <= kLargestDatabase &&
         RecordSize(model.operative) <= kLargestOperative &&
         RecordSize(model.operative) == RecordSize(model.operative.layout);
}

// The model of a type code; null for a 521 of unknown firmware.
const Model* FindModel(TypeCode type);

// The units of pressure and heat by UnitsCode: both null for a code that names none.
inline constexpr std::uint8_t kPressure = 0;
inline constexpr std::uint8_t kHeat = 1;
ChosenUnits UnitsByCode(const TKSplImpl& reader, int system);
// Sets UnitsCode from the first byte of the instrument's database, EI; that of heat system 2 stays
// as it is: intended.
void KeepUnitsCode(TKSplImpl& reader, std::span<const std::uint8_t> database);

// The number that a column of a record holds: floats are truncated, texts parsed.
std::uint32_t NumberIn(Columns columns, std::span<const std::uint8_t> record, const char* name);
// Where a column stands in its record. The column is there.
std::size_t OffsetOf(Columns columns, const char* name);

}  // namespace older
