// Sections as JSON.
#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "host/stream/cell.h"
#include "host/stream/section.h"

namespace host {

// Single-precision values print with their own shortest digits; what is no number, and what a
// cut row lacks, is null.
nlohmann::ordered_json CellJson(const Cell& cell);

// {"DT": "2016-09-04 13:00:00", "t1": 71.5, ...}; bytes that no column describes go under
// "undescribed".
nlohmann::ordered_json RowJson(const Section& section, ByteView row);

// The title and the columns.
nlohmann::ordered_json SectionJson(const Section& section);

// {"sections": [...]}
nlohmann::ordered_json DocumentJson(const std::vector<KeptSection>& sections);

}  // namespace host
