// What came of what a reading asked for.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "TKSplDrv/records.h"
#include "TKSplDrv/types.h"

namespace host {

// Dates of archive records that follow each other, both ends included.
struct DateRange {
  TAVDT first{};
  TAVDT last{};
};

// Of a section that a reading was to bring, also of one that never came.
struct SectionAccount {
  tav::TitleKind kind{};
  std::string section;       // as in Title
  std::size_t expected = 0;  // records; of a log as many as came
  std::size_t received = 0;
  std::size_t notHeld = 0;  // the instrument has no such record
  std::size_t failed = 0;   // the rest: asked for without a good answer, or never asked for
  // Empty for what has no dates: current values, parameters, logs.
  std::vector<DateRange> absent{};   // of notHeld
  std::vector<DateRange> missing{};  // of failed
  std::string reason{};              // why the first one failed: "no reply"; may be empty
};

}  // namespace host
