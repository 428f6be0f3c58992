// What an instrument measures: a heat system or a gas pipeline, hour by hour. Everything follows
// from the seed and the hour, so that each value can be had at any time and in any order.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "simulator/moment.h"

namespace simulator {

// Named as the columns of the records. Pressures in kgf/cm2, heat in Gcal, masses in tonnes,
// volumes in m3, flows in t/h or m3/h, temperatures in degrees Celsius, times in hours.
// clang-format off
enum Quantity : std::size_t {
  // Means
  kT1, kT2, kT3, kDt12, kThv, kTvoz, kP1, kP2, kP3, kP4, kDP1, kDP2, kDP3, kPb,
  kG1, kG2, kG3, kQp1, kQ1, kQp2, kQ2,
  // Sums
  kV1, kV2, kV3, kM1, kM2, kM3, kQ, kQgvs, kVp1, kVp2, kV, kVp, kVsn, kTw, kTC,
  kQuantities
};

// clang-format on

constexpr bool IsSum(std::size_t quantity) { return quantity >= kV1; }

// The quantity of a column, none for a column that isn't measured.
std::optional<Quantity> FindQuantity(std::string_view column);

struct Measured {
  std::array<double, kQuantities> values{};
  std::uint32_t situation = 0;  // 24 bits, 0 in a good hour
};

enum class Site { kHeat, kGas };

struct Plant {
  Site site = Site::kHeat;
  std::uint64_t seed = 1;  // one of its own for each heat system
  bool operator==(const Plant&) const = default;
};

// The hour in which the moment lies.
Measured MeasuredHour(const Plant& plant, Moment moment);
// From one full hour to another: means and sums of the hours between, their situations together.
Measured MeasuredPeriod(const Plant& plant, Moment begin, Moment end);

// The same for one beginning and an end that moves on: what was summed up is kept.
class RunningPeriod {
 public:
  Measured Until(const Plant& plant, Moment begin, Moment end);

 private:
  Plant plant_;
  std::int64_t first_ = 0, last_ = 0;  // hours
  Measured sums_;                      // of the means too
};

}  // namespace simulator
