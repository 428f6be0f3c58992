// The archive of a heat meter 523 as the driver's stream brings it.
#pragma once

#include <cstdint>
#include <vector>

#include "host/reading/account.h"
#include "host/reading/run_listener.h"

namespace bench {

struct ArchiveSize {
  int instrument = 0;  // its network number; the serial number follows from it
  int years = 1;       // from 2016-01-01 on
  bool sums = false;   // the days and months too
  bool gaps = false;   // now and then some hours are missing
};

struct MeterArchive {
  std::vector<std::vector<std::uint8_t>> pieces;  // the driver's write calls
  std::vector<host::SectionAccount> accounts;
  std::size_t records = 0;
};

// One heat system. A day's values are the sums of its hours, or their means, whether all of them
// are there or not, as an instrument has them; so are a month's.
MeterArchive MakeMeterArchive(const ArchiveSize& size);

// Has the listener keep the archive as a reading of it would.
void Read(const MeterArchive& archive, const ArchiveSize& size, host::RunListener& listener);

}  // namespace bench
