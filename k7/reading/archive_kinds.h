// The kinds of archives: how they are called and titled.
#pragma once

#include <cstdint>

#include "k7/reading/period.h"
#include "k7/tables.h"

namespace k7 {

// The codes of the archive request that this driver uses; 2 (ten days) and 5 (power supply) exist.
enum class Kind : std::uint8_t {
  kHour = 0,
  kDay = 1,
  kMon = 3,
  kChange = 4,
  kEvent = 6,
  kControl = 7,
};

struct ArchiveKind {
  Kind kind;
  const char* name;
  const char* startSubject;  // of the message that announces the read; spelled so on purpose
  TitleKind title;
  const char* suffix;  // behind the system's name, with its blank
  Period period;       // of a log: not used
  Columns log;         // of a log: its columns
};

// Defined in the table of kinds; every Kind stands there.
const ArchiveKind& Describe(Kind kind);

}  // namespace k7
