#include "host/report/packed_column.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace host {
namespace {

// The code of a step between two of these fits a script's numbers, which are exact up to 2^53.
constexpr double kMost = 2e15;

bool IsValue(const std::optional<double>& value) { return value && std::isfinite(*value); }

double Scale(double value, int decimals) { return value * std::pow(10, decimals); }

int DecimalsOfPressure(Unit unit) {
  if (unit == Unit::kKpa) return 1;
  return unit == Unit::kMpa ? 4 : 3;
}

struct Coder {
  void AddNone() { packed.codes.push_back(0); }
  void Add(std::int64_t value) {
    const std::int64_t step = value - before;
    before = value;
    const auto size = static_cast<std::uint64_t>(std::abs(step));
    packed.codes.push_back(step < 0 ? 2 * size : 2 * size + 1);
    while (packed.codes.back() >> 8 * packed.bytes > 0) ++packed.bytes;
  }

  PackedColumn packed;
  std::int64_t before = 0;
};

std::string Plane(const PackedColumn& column, unsigned place) {
  std::string bytes;
  bytes.reserve(column.codes.size());
  for (const std::uint64_t code : column.codes) {
    bytes += static_cast<char>(code >> 8 * place & 0xFF);
  }
  return bytes;
}

}  // namespace

int DecimalsOf(const Field& field) {
  switch (field.quantity) {
    case Quantity::kModeCode:
    case Quantity::kSituationCode:
    case Quantity::kDiagnosticCode:
    case Quantity::kFlag:
      return 0;
    case Quantity::kTemperature:
    case Quantity::kTemperatureDifference:
      return 2;
    case Quantity::kPressure:
    case Quantity::kPressureDifference:
      return DecimalsOfPressure(field.unit.unit);
    case Quantity::kHeat:
      return 4;
    default:
      return 3;
  }
}

PackedColumn Pack(const std::vector<std::optional<double>>& values, int decimals) {
  Coder coder;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double scaled = IsValue(values[i]) ? Scale(*values[i], decimals) : 0;
    if (IsValue(values[i]) && std::abs(scaled) <= kMost) {
      coder.Add(std::llround(scaled));
      continue;
    }
    coder.AddNone();
    if (IsValue(values[i])) coder.packed.wild.emplace_back(i, *values[i]);
  }
  return coder.packed;
}

PackedColumn Pack(const std::vector<PeriodNumber>& periods) {
  Coder coder;
  for (const PeriodNumber period : periods) coder.Add(period);
  return coder.packed;
}

std::vector<std::string> Planes(const std::vector<PackedColumn>& columns) {
  std::vector<std::string> planes;
  for (unsigned place = 0; place < sizeof(std::uint64_t); ++place) {
    for (const PackedColumn& column : columns) {
      if (place < column.bytes) planes.push_back(Plane(column, place));
    }
  }
  return planes;
}

}  // namespace host
