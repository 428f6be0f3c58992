// The columns that a section came with, as the store keeps them.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "host/store/selection.h"
#include "host/stream/cell.h"

namespace host {

struct KeptFormat {
  Section section;                  // its title has no time
  std::vector<std::string> fields;  // the base names that values are kept under
};

KeptFormat LoadFormat(Database& database, const StoredSection& section, long long format);

// A value as the store keeps it, as a cell of a column. Nothing for null.
Cell CellOf(const nlohmann::ordered_json& value, tav::Type type);

// "2016-09-04 13:05:09"; all zeros when it is no such text.
TAVDT TimeOf(const std::string& text);

}  // namespace host
