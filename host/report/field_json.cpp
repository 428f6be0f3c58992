#include "host/report/field_json.h"

#include <cmath>

#include "host/fields/words.h"

namespace host {

using Json = nlohmann::ordered_json;

Json JsonOf(const Field& field, const Column& column) {
  return {{"field", field.name},        {"base", field.base},
          {"caption", column.caption},  {"quantity", NameOf(field.quantity)},
          {"pipe", NameOf(field.pipe)}, {"span", NameOf(field.span)},
          {"unit", field.unit.text}};
}

std::optional<double> NumberIn(const Cell& cell) {
  if (const auto* whole = std::get_if<std::uint32_t>(&cell)) return *whole;
  if (const auto* narrow = std::get_if<float>(&cell)) return *narrow;
  if (const auto* wide = std::get_if<double>(&cell)) return *wide;
  return std::nullopt;
}

Json JsonOf(const Cell& cell, int decimals) {
  if (std::holds_alternative<std::monostate>(cell)) return nullptr;
  const std::optional<double> number = NumberIn(cell);
  if (!number) return CellText(cell);
  if (!std::isfinite(*number)) return nullptr;
  const double scale = std::pow(10, decimals);
  const double scaled = std::round(*number * scale);
  return std::isfinite(scaled) ? scaled / scale : *number;
}

Json TextOrNull(const std::string& text) { return text.empty() ? Json() : Json(text); }

}  // namespace host
