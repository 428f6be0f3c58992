#include "host/checks/sums.h"

#include <cmath>
#include <limits>

namespace host {
namespace {

constexpr double kLastPlace = 0.001;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

}  // namespace

void Sums::Add(const std::vector<double>& values, const UnitTexts& units) {
  if (units_ == nullptr) units_ = &units;
  const bool same = units_ == &units || *units_ == units;
  for (std::size_t i = 0; i < sums_.size(); ++i) {
    const bool fits = same || (i < units.size() && i < units_->size() && (*units_)[i] == units[i]);
    sums_[i] += fits ? values[i] : kNone;
  }
  ++records_;
}

double Sums::Of(std::size_t field, const UnitTexts& units) const {
  if (units_ == nullptr || field >= units_->size() || field >= units.size()) return kNone;
  return (*units_)[field] == units[field] ? sums_[field] : kNone;
}

bool AddsUp(double sum, double expected, std::size_t values, double tolerance) {
  const double rounding = kLastPlace * std::sqrt(static_cast<double>(values));
  const double allowed = std::abs(expected) * tolerance / 100 + rounding;
  return !(std::abs(sum - expected) > allowed);
}

}  // namespace host
