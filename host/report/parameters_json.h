// Parameters and what changed in them, as the page is told.
#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "host/store/parameters.h"

namespace host {

// Lists of "parameters" and of "changes", see docs/report.md.
nlohmann::ordered_json JsonOf(const std::vector<ParameterSnapshot>& snapshots);
nlohmann::ordered_json JsonOf(const std::vector<ParameterChange>& changes);

}  // namespace host
