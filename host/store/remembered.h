// What the store knows of an instrument, for readings of what it lacks.
#pragma once

#include <memory>
#include <string>

#include "host/reading/known_records.h"

namespace host {

struct Wish {
  bool fill = false;       // all gaps; else what lies behind the last record of each archive
  bool fromNamed = false;  // the settings' beginning is the user's, so is their end
  bool toNamed = false;
  int askAgain = 30;  // days after which what the instrument did not hold is asked for again
  GapOrder order = GapOrder::kLongest;  // of fill
};

// address: as MakeStoreSink takes it. A store that is not there is made, unless it is to be filled.
// Throws std::runtime_error with one sentence.
std::unique_ptr<KnownRecords> MakeRemembered(const std::string& address, const Wish& wish);

}  // namespace host
