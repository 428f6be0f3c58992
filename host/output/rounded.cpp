#include "host/output/rounded.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace host {
namespace {

std::optional<double> FractionOf(const Cell& cell) {
  if (const auto* narrow = std::get_if<float>(&cell)) return *narrow;
  if (const auto* wide = std::get_if<double>(&cell)) return *wide;
  return std::nullopt;
}

// Outside these an exponent is shorter.
bool IsPlain(double value) {
  constexpr double kLeast = 1e-4;
  constexpr double kMost = 1e15;
  return std::abs(value) >= kLeast && std::abs(value) < kMost;
}

std::string Rounded(double value, int digits) {
  if (!IsPlain(value)) return fmt::format("{:.{}g}", value, digits);
  const int before = static_cast<int>(std::floor(std::log10(std::abs(value)))) + 1;
  std::string text = fmt::format("{:.{}f}", value, std::max(0, digits - before));
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

}  // namespace

std::string RoundedText(const Cell& cell, int digits) {
  std::string exact = CellText(cell);
  const std::optional<double> value = FractionOf(cell);
  if (!value || !std::isfinite(*value)) return exact;
  std::string rounded = Rounded(*value, digits);
  return rounded.size() < exact.size() ? rounded : exact;
}

}  // namespace host
