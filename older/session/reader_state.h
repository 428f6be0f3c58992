// What a reading of the older protocol knows: the identified instrument, how far the reading has
// come, and the line and stream it works with.
#pragma once

#include <array>
#include <cstdint>

#include "TKSplDrv/conversions.h"
#include "TKSplDrv/driver.h"
#include "older/link/link.h"
#include "older/session/identity.h"
#include "older/session/policy.h"
#include "older/tables.h"

namespace older {

enum class ArchiveKind { kHourly = 0, kDaily = 1, kMonthly = 2 };

// The most heat systems that an instrument has. The tables by heat system have a place more: 0 is
// common to them.
inline constexpr int kHeatSystems = 2;
inline constexpr int kSystems = kHeatSystems + 1;

// Where the continuous reading goes on. The poll routine clears it as a whole.
struct ReadingProgress {
  SYSTEMTIME NextDate[3][kSystems];   // by archive kind and heat system: the next record to be read
  std::uint8_t SystemSkip[kSystems];  // the continuous step leaves this heat system out
  std::uint8_t continuous;            // the continuous reading has begun
};

// Unit texts of a 721's parameters: at most 15 characters and a terminator.
using UnitText = std::array<char, 16>;

struct TKSplImpl {
  TKSplImpl(TavDrvV1& bound, Identities identities)
      : driver(bound), policy(bound), known(identities), link(bound), out(bound) {}

  // A message with code 0.
  void Say(const char* text1, const char* text2) { driver.MessageTav(nullptr, text1, text2, 0); }
  void SayNumber(unsigned long number, const char* text2) {
    char text1[24];
    Say(UcToSChar(text1, number), text2);
  }
  // The notice that new values are there: two empty texts.
  void SayNewValues() { driver.MessageTav(nullptr, "", "", tav::kNewValues); }

  TavDrvV1& driver;
  const Policy policy;
  const Identities known;
  Link link;
  RecordStream out;

  const Identity* instrument = nullptr;  // null: none yet, or one of unknown firmware
  std::uint8_t versionIndex = 0;         // byte 5 of its identification
  char modelKey[29] = {};                // "urm521", ...
  TAVDT InstrumentClock = {};            // as last read
  ReadingProgress progress = {};
  // Index of the pressure and heat units by heat system. That of system 2 is never set: intended.
  std::uint8_t UnitsCode[kSystems] = {};
  std::array<UnitText, Unit::kChoices> unitTexts = {};  // of a 721
};

}  // namespace older
