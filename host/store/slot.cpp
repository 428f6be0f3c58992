#include "host/store/slot.h"

#include <charconv>
#include <cmath>
#include <optional>

namespace host {
namespace {

bool IsReal(Slot::Type type) { return type == Slot::Type::kReal || type == Slot::Type::kWideReal; }

// The number that a float's shortest text says when that has at most four decimals: what
// instruments have, and much sooner than by the text. The product is exact, and the number with the
// fewest decimals that is this float is the shortest text below 2^20.
std::optional<double> FewDecimals(float value) {
  if (!(std::fabs(value) < 0x1p20F)) return std::nullopt;
  for (const double scale : {1.0, 10.0, 100.0, 1000.0, 10000.0}) {
    const double number = std::nearbyint(double{value} * scale) / scale;
    if (static_cast<float>(number) == value) return number;
  }
  return std::nullopt;
}

}  // namespace

double ShownNumber(const Cell& cell) {
  if (const auto* wide = std::get_if<double>(&cell)) return *wide;
  const auto* value = std::get_if<float>(&cell);
  if (value == nullptr || !std::isfinite(*value)) return value == nullptr ? 0 : double{*value};
  if (const auto number = FewDecimals(*value)) return *number;
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, *value).ptr;
  double number = 0;
  std::from_chars(text, end, number);
  return number;
}

void Slot::Set(long long value) {
  integer = value;
  indicator = soci::i_ok;
}

void Slot::Set(const std::string& value) {
  text = value;
  indicator = soci::i_ok;
}

bool Slot::Take(const Cell& cell) {
  Clear();
  if (std::holds_alternative<std::monostate>(cell)) return true;
  if (const auto* whole = std::get_if<std::uint32_t>(&cell)) {
    if (type != Type::kInteger) return false;
    Set(static_cast<long long>(*whole));
    return true;
  }
  if (std::holds_alternative<float>(cell) || std::holds_alternative<double>(cell)) {
    if (!IsReal(type)) return false;
    number = ShownNumber(cell);
    if (std::isfinite(number)) indicator = soci::i_ok;
    return true;
  }
  if (type != Type::kText) return false;
  Set(CellText(cell));
  return true;
}

void Into(soci::statement& statement, Slot& slot) {
  switch (slot.type) {
    case Slot::Type::kInteger:
      return statement.exchange(soci::into(slot.integer, slot.indicator));
    case Slot::Type::kReal:
    case Slot::Type::kWideReal:
      return statement.exchange(soci::into(slot.number, slot.indicator));
    case Slot::Type::kText:
      break;
  }
  statement.exchange(soci::into(slot.text, slot.indicator));
}

bool SameValue(const Slot& left, const Slot& right) {
  if (left.IsNull() || right.IsNull()) return left.IsNull() == right.IsNull();
  switch (left.type) {
    case Slot::Type::kInteger:
      return left.integer == right.integer;
    case Slot::Type::kReal:
      return static_cast<float>(left.number) == static_cast<float>(right.number);
    case Slot::Type::kWideReal:
      return left.number == right.number;
    case Slot::Type::kText:
      break;
  }
  return left.text == right.text;
}

}  // namespace host
