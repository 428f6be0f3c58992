// What a check of the store finds.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

#include "host/store/selection.h"

namespace host {

struct CheckOptions {
  double tolerance = 0.1;                // percent that sums may differ by
  std::chrono::seconds clockLimit{120};  // that a clock may be wrong by
  long long situationHours = 24;         // that situations may last, and working time may lack
};

// What was to be, and what is.
struct FoundNumbers {
  double expected = 0;
  double found = 0;
  std::string unit{};
};

struct Finding {
  StoredSection section;  // of a finding about the whole instrument the name and kind are empty
  std::string kind{};     // of the records: "hours"; empty as well
  std::string rule{};
  bool note = false;  // worth knowing, but nothing wrong
  // The first and the last record, or reading: "2016-09-04 13:00:00".
  std::string from{};
  std::string to{};
  std::size_t records = 0;  // that it is about
  std::string field{};      // without a unit; empty: about no field
  std::optional<FoundNumbers> numbers{};
  std::string sentence{};
};

}  // namespace host
