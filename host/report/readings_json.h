// How an instrument was read lately, as the page is told.
#pragma once

#include <nlohmann/json.hpp>

#include "host/store/recent_readings.h"

namespace host {

// Adds "readings", "last", "difference" and "failed", see docs/report.md.
void AddReadings(const RecentReadings& readings, nlohmann::ordered_json& json);

}  // namespace host
