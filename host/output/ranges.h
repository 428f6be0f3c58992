// What is missing of a section, in words.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/reading/account.h"

namespace host {

// A date of an archive's record, as exactly as the archive has it: "2016-09-01 03:00", "2016-09-01"
// of days, "2016-09" of months.
std::string RecordDateText(tav::TitleKind kind, const TAVDT& date);

// "2016-09-01 03:00 to 05:00", "2016-09-01 22:00 to 2016-09-02 01:00", "2016-09-01 to 2016-09-03",
// "2016-07 to 2016-09"; one date when both ends are the same.
std::string RangeText(tav::TitleKind kind, const DateRange& range);

// With ", " between them; those after the first so many are counted: "... and 12 more".
inline constexpr std::size_t kAllRanges = static_cast<std::size_t>(-1);
std::string RangesText(tav::TitleKind kind, const std::vector<DateRange>& ranges,
                       std::size_t most = kAllRanges);

// "missing 3 of 744: 2016-09-01 03:00, 2016-09-02 05:00 to 07:00 (no reply)"; empty when nothing
// is.
std::string MissingText(const SectionAccount& account, std::size_t most = kAllRanges);

// "the instrument does not hold 2 of 744: 2016-09-01 03:00 to 04:00"; empty when it holds all.
std::string NotHeldText(const SectionAccount& account, std::size_t most = kAllRanges);

}  // namespace host
