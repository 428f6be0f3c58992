// Which part of an instrument's archives a page shows.
#pragma once

#include "host/report/report.h"
#include "host/store/coverage.h"

namespace host {

// The month of a statement; a year up to the newest record where no begin is given, unless all is
// wanted; else the selection as it is. sections: of one instrument. Within Read.
Selection ShownDates(Database& database, const std::vector<StoredSection>& sections,
                     const ReportOptions& options);

// Without the periods before those that the selection begins with.
Coverage Clipped(const Coverage& coverage, const Selection& selection);

// "2016-09" as the number of the month; none when it is no month.
std::optional<PeriodNumber> MonthOf(const std::string& text);

}  // namespace host
