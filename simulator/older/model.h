// An instrument model of the older protocol as data: who it is, what it stores where.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "simulator/instrument.h"
#include "simulator/moment.h"
#include "simulator/plant.h"

namespace simulator::older {

class Row;
class Values;
struct Model;

enum class Archive { kHourly, kDaily, kMonthly };

// What stands at the addresses of an instrument.
class Memory {
 public:
  virtual ~Memory() = default;
  // Instrument memory; nothing when no value of this size stands at the address.
  virtual std::optional<Bytes> Read(unsigned address, std::size_t count, Moment now) const = 0;
  // Flash pages of 64 bytes; nothing when one of them doesn't exist.
  virtual std::optional<Bytes> Flash(unsigned page, std::size_t count, Moment now) const = 0;
  // The data bytes of an archive record that exists.
  virtual Bytes Record(Archive kind, int system, Moment stamp) const = 0;
};

constexpr std::size_t kPageSize = 64;

// A database column and its text. The texts of SP, EI, ID, NT and KW follow from the settings.
struct Parameter {
  const char* column;
  const char* text;
  std::size_t width = 8;  // characters in flash
};

// A parameter database in flash.
struct Block {
  int system;        // 0: the common one or the only one
  unsigned address;  // byte address in flash
  bool inRows;       // each text inside a row of 16 bytes, instead of one after the other
  std::span<const Parameter> parameters;
};

// Columns of a record: SP one byte, NS four bytes, the others floats.
using Columns = std::span<const char* const>;

// By the setting EI.
inline constexpr Choice kUnitCodes[] = {
    {"0", "кг/см2, ГКал"}, {"1", "МПа, ГДж"}, {"2", "бар, МВт"}};

struct Model {
  ModelInfo info;
  std::uint8_t family = 0, code = 0;  // of the identification
  std::uint8_t version = 0;           // firmware version byte unless the settings say otherwise
  // Of a model whose firmware decides about its units; null for one that has a setting for them.
  int (*unitsOfVersion)(int version) = nullptr;
  std::uint8_t versionOfUnits1 = 0;
  unsigned clockAddress = 0;
  int systems = 1;
  Site site = Site::kHeat;
  std::uint8_t noRecordCode = 3;  // error reply for an archive record that doesn't exist
  std::unique_ptr<Memory> (*memory)(const Model& model, const Values& values) = nullptr;
  std::span<const Block> blocks{};
  // For the models whose memory follows from a description alone:
  Columns current{}, totals{};
  Columns archive{};           // the floats of an archive record
  bool modeInArchive = false;  // the record starts with the mode code
  bool logs = false;
  // What a host puts where a record holds nothing; null: it holds everything.
  void (*completeArchive)(Archive kind, Row& row) = nullptr;
  void (*completeCurrent)(int version, Row& row) = nullptr;
};

extern const Model kModel521, kModel522, kModel523, kModel521x, kModel721;

std::span<const Model* const> AllModels();
// Throws std::invalid_argument when there is no such model.
const Model& FindModel(const std::string& name);

}  // namespace simulator::older
