// Findings, as the page is told.
#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "host/checks/finding.h"

namespace host {

// Those of an instrument: the list of "findings", see docs/report.md.
nlohmann::ordered_json FindingsOf(const std::vector<Finding>& findings, long long instrument);

}  // namespace host
