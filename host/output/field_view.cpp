#include "host/output/field_view.h"

#include <charconv>
#include <cmath>
#include <optional>

namespace host {
namespace {

bool IsNumber(tav::Type type) { return type == tav::Type::kFloat || type == tav::Type::kDouble; }

std::optional<double> NumberOf(const Cell& cell) {
  if (const auto* wide = std::get_if<double>(&cell)) return *wide;
  if (!std::holds_alternative<float>(cell)) return std::nullopt;
  const std::string text = CellText(cell);
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  return result.ec == std::errc() ? std::optional(value) : std::nullopt;
}

}  // namespace

Cell Converted(const Cell& cell, Unit given, Unit shown) {
  if (given == shown) return cell;
  const std::optional<double> value = NumberOf(cell);
  return value && std::isfinite(*value) ? Cell(Convert(*value, given, shown)) : cell;
}

const Cells& ShownColumns::In(const Cells& cells, Cells& scratch) const {
  if (!converted) return cells;
  scratch = cells;
  for (std::size_t i = 0; i < scratch.size() && i < fields.size(); ++i) {
    scratch[i] = Converted(scratch[i], given[i], fields[i].unit.unit);
  }
  return scratch;
}

void FieldView::See(const Section& section) {
  if (told_ == nullptr) seen_.See(section);
}

void FieldView::See(const Section& section, const Cells& row) {
  if (told_ == nullptr) seen_.See(section, row);
}

ShownColumns FieldView::Columns(const Section& section) const {
  ShownColumns columns;
  columns.fields = FieldsOf(section, told_ == nullptr ? seen_ : *told_);
  for (std::size_t i = 0; i < columns.fields.size(); ++i) {
    Field& field = columns.fields[i];
    columns.given.push_back(field.unit.unit);
    // A number that stands in a text cannot be converted, so its name may not say that it was.
    if (IsNumber(section.columns[i].type)) field = Converted(field, choice_);
    if (field.unit.unit != columns.given.back()) columns.converted = true;
  }
  return columns;
}

}  // namespace host
