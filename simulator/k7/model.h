// What tells the instruments of the newer protocol apart: the numbers of their parameters and the
// order of the values in their replies.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "simulator/instrument.h"

namespace simulator::k7 {

// Kind codes of archive requests.
enum class Archive : std::uint8_t {
  kHourly = 0,
  kDaily = 1,
  kMonthly = 3,
  kChanges = 4,
  kEvents = 6,
  kControl = 7,
};

struct Field {
  enum Kind {
    kState,     // one byte
    kFloat,     // four bytes
    kIntFloat,  // an integer and a float
    kCode,      // four bytes
  };
  Kind kind;
  const char* name;  // of the column, UTF-8; empty: something that no column shows
};
using Fields = std::span<const Field>;

// Parameters of the database on one channel, the first and the last of each stretch.
struct ParameterRange {
  int channel, first, last;
};

// The heat carries the name of a pressure unit as well.
inline constexpr Choice kUnits[] = {{"0", "кгс/см2"}, {"1", "МПа"}, {"2", "бар"}};

struct Model {
  ModelInfo info;
  std::uint16_t code;  // in the reply to an identification
  int version;
  // Channels of the values and archives. A single system has channel 0.
  int firstSystem, lastSystem;
  std::span<const ParameterRange> database;
  int serialNumber;  // parameters on channel 0
  int pressureUnit;
  int heatUnit;         // the same as the pressure unit's: there is none of its own
  int current, totals;  // the first parameters of the values
  Fields currentFields, totalsFields;
  bool datedRecords;         // the values of an archive record begin with its time and date
  Fields periodic, control;  // values of an archive record
};

extern const Model kModel521, kModel523;

std::span<const Model* const> AllModels();
// Throws std::invalid_argument when there is no such model.
const Model& FindModel(const std::string& name);

}  // namespace simulator::k7
