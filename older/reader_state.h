// What a reading of the older protocol knows: the identified instrument, how far the reading has
// come, and the line and stream it works with.
#pragma once

#include <array>
#include <cstdint>

#include "TKSplDrv/driver.h"
#include "driver/reader.h"
#include "older/link/link.h"
#include "older/session/policy.h"
#include "older/tables.h"

namespace older {

enum class TypeCode : std::uint32_t {
  kUnknown521 = 0,  // a 521 whose firmware is not in the version table
  k521 = 1,
  k522 = 2,
  k523 = 3,
  k721 = 7,
  k521x = 10,
};

enum class ArchiveKind { kHourly = 0, kDaily = 1, kMonthly = 2 };

inline constexpr int kSystems = 3;  // indexes of the per-system tables: 0 common, 1 and 2

// Where the continuous reading goes on. The poll routine clears it as a whole.
struct ReadingProgress {
  SYSTEMTIME NextDate[3][kSystems];   // by archive kind and heat system: the next record to be read
  std::uint8_t SystemSkip[kSystems];  // the continuous step leaves this heat system out
  std::uint8_t continuous;            // the continuous reading has begun
};
static_assert(sizeof(ReadingProgress) == 148);

// Unit texts of a 721's parameters: at most 15 characters and a terminator.
using UnitText = std::array<char, 16>;

struct TKSplImpl final : Reader {
  explicit TKSplImpl(TavDrvV1& bound) : driver(bound), policy(bound), link(bound), out(bound) {}

  // The poll routine: identifies and reads.
  Ending Run() override;

  // A message with code 0.
  void Say(const char* text1, const char* text2) { driver.MessageTav(nullptr, text1, text2, 0); }
  // The notice that new values are there: two empty texts and code 1.
  void SayNewValues() { driver.MessageTav(nullptr, "", "", 1); }

  TavDrvV1& driver;
  const Policy policy;
  Link link;
  RecordStream out;

  TypeCode type = TypeCode::kUnknown521;
  std::uint8_t versionIndex = 0;  // of a 521: identification byte 5
  char modelKey[29] = {};         // "urm521", ...
  TAVDT InstrumentClock = {};     // as last read
  ReadingProgress progress = {};
  // Index of the pressure and heat units by heat system. That of system 2 is never set: intended.
  std::uint8_t UnitsCode[kSystems] = {};
  std::array<UnitText, Unit::kChoices> unitTexts = {};  // of a 721
};

}  // namespace older
