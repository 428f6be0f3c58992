// What the store keeps of an instrument, told as its sections and rows once came.
#pragma once

#include <vector>

#include "host/store/selection.h"
#include "host/stream/section_listener.h"

namespace host {

// Rows of each section in the order of their times: records of the periods that the selection
// touches, log entries and current values within it. Of parameters the last that were kept before
// its end. A section whose columns or units changed comes as several. Only the
// titles of values and parameters tell the instrument's clock. Within Read.
void TellKept(Database& database, const std::vector<StoredSection>& sections,
              const Selection& selection, SectionListener& listener);

}  // namespace host
