// How an instrument was read lately, as the page is told.
#pragma once

#include <nlohmann/json.hpp>

#include "host/store/selection.h"

namespace host {

// Adds "readings", "last", "difference" and "failed", see docs/report.md. Within Read.
void AddReadings(Database& database, const StoredSection& section, nlohmann::ordered_json& json);

}  // namespace host
