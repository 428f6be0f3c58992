// Current values and log entries, as the page is told.
#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "host/output/field_view.h"
#include "host/store/selection.h"

namespace host {

// Lists of "current" and of "logs", see docs/report.md. Of current values the newest within the
// selection, or all of them. Within Read.
nlohmann::ordered_json CurrentValues(Database& database, const std::vector<StoredSection>& sections,
                                     const Selection& selection, const UnitChoice& units, bool all);
nlohmann::ordered_json Logs(Database& database, const std::vector<StoredSection>& sections,
                            const Selection& selection, const UnitChoice& units);

}  // namespace host
