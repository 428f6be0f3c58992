#include "host/store/slot.h"

#include <charconv>
#include <cmath>

namespace host {
namespace {

bool IsReal(Slot::Type type) { return type == Slot::Type::kReal || type == Slot::Type::kWideReal; }

}  // namespace

double ShownNumber(const Cell& cell) {
  if (const auto* wide = std::get_if<double>(&cell)) return *wide;
  const auto* value = std::get_if<float>(&cell);
  if (value == nullptr || !std::isfinite(*value)) return value == nullptr ? 0 : double{*value};
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
