// What a column is, as the page is told.
#pragma once

#include <nlohmann/json.hpp>

#include "host/fields/fields.h"
#include "host/stream/cell.h"

namespace host {

// Field, base, caption, quantity, pipe, span, unit.
nlohmann::ordered_json JsonOf(const Field& field, const Column& column);

// A number rounded to so many decimals, a text, or null.
nlohmann::ordered_json JsonOf(const Cell& cell, int decimals);

// Null for an empty text.
nlohmann::ordered_json TextOrNull(const std::string& text);

// The number in a cell; none: it holds none.
std::optional<double> NumberIn(const Cell& cell);

}  // namespace host
