// How an instrument was read lately.
#pragma once

#include <optional>
#include <string>

#include "host/store/selection.h"

namespace host {

// Times are of the machine that read.
struct LastReading {
  std::string begun;
  std::string ended{};   // empty: under way, or killed
  std::string result{};  // "read", "gaps", "failed", "interrupted"; empty as well
  std::string reason{};
  std::optional<long long> difference{};  // seconds that the instrument's clock was ahead
};

// Readings at the instrument's place since the last one of it that found nobody.
struct FailedReadings {
  long long count = 0;
  std::string last;  // when it was begun
  std::string reason{};
};

struct RecentReadings {
  long long count = 0;  // of the instrument, ever
  std::optional<LastReading> last{};
  std::optional<long long> difference{};  // of the last reading that knew it
  std::optional<FailedReadings> failed{};
};

// section: any of the instrument. Within Read.
RecentReadings FindRecentReadings(Database& database, const StoredSection& section);

}  // namespace host
