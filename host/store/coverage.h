// Which records of an archive are kept, which were asked for in vain, which the instrument does not
// have, and which were never asked for.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/reading/periods.h"
#include "host/store/selection.h"

namespace host {

enum class RecordState {
  kKept,
  kMissing,  // asked for without a good answer
  kAbsent,   // the instrument has none
  kUnasked
};

struct CoverageRange {
  RecordState state{};
  PeriodRange periods;
  std::string learnt{};  // of kAbsent: when the reading began that told, this machine's time
};

struct Coverage {
  Period period{};
  PeriodRange bounds;
  std::vector<CoverageRange> ranges;  // one behind the other, from bound to bound
};

struct SectionCoverage {
  StoredSection section;
  Coverage coverage;
};

std::size_t SizeOf(const PeriodRange& range);
std::size_t Count(const Coverage& coverage, RecordState state);
// Whether a reading could bring something.
bool HasGaps(const Coverage& coverage);

// From the first record of an archive to the last one, or to the last that is kept or known not to
// be there; may be none. Within Read, as the next.
PeriodRange KeptExtent(Database& database, const StoredSection& section);
PeriodRange KnownExtent(Database& database, const StoredSection& section);

// section: an archive.
Coverage CoverageOf(Database& database, const StoredSection& section, const PeriodRange& bounds);

// Of the archives that a selection names, in the order of FindSections. Where it names no bounds:
// from the first record that is kept or known not to be there to the last one, or to the last
// period that is over by the newest record of the instrument's archives. What is not over by this
// machine's clock is left out, and so are archives without any period within the bounds.
std::vector<SectionCoverage> FindCoverage(Database& database, const Selection& selection);

// The same of a store that is there; address: as MakeStoreSink takes it. Throws
// std::runtime_error.
std::vector<SectionCoverage> ListCoverage(const std::string& address, const Selection& selection);

}  // namespace host
