// An instrument model of the older protocol as data: who it is, what it stores where.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "simulator/instrument.h"
#include "simulator/moment.h"
#include "simulator/older/plant.h"

namespace simulator::older {

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

struct Model {
  Choice choice;
  std::uint8_t family = 0, code = 0;  // of the identification
  std::uint8_t version = 0;           // firmware version byte unless the settings say otherwise
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
  bool lacksM3 = false;  // an archive record without the third mass
};

extern const Model kModel521, kModel522, kModel523, kModel521x, kModel721;

std::span<const Model* const> AllModels();
// Throws std::invalid_argument with the names that there are.
const Model& FindModel(const std::string& name);

}  // namespace simulator::older
