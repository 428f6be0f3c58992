// Findings, as the page is told.
#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "host/checks/finding.h"

namespace host {

// The list of "findings", see docs/report.md: those that end before a date are left out.
nlohmann::ordered_json FindingsOf(const std::vector<Finding>& findings,
                                  const std::optional<SYSTEMTIME>& from);

}  // namespace host
