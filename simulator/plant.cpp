#include "simulator/plant.h"

#include <algorithm>
#include <cmath>

#include "simulator/random.h"

namespace simulator {
namespace {

constexpr double kPi = 3.14159265358979323846;

// In the order of Quantity.
constexpr std::string_view kColumns[] = {
    "t1",  "t2", "t3", "dt_1_2", "thv",  "tvoz", "P1",  "P2",  "P3", "P4",  "dP1", "dP2",
    "dP3", "Pb", "G1", "G2",     "G3",   "Qp1",  "Q1",  "Qp2", "Q2", "V1",  "V2",  "V3",
    "M1",  "M2", "M3", "Q",      "Qgvs", "Vp1",  "Vp2", "V",   "Vp", "Vsn", "Tw",  "TC"};
static_assert(std::size(kColumns) == kQuantities);

// The hours of a plant, each with random numbers of its own.
class HourOf {
 public:
  HourOf(const Plant& plant, std::int64_t hour) : seed_(plant.seed), hour_(hour) {}

  double OfDay() const { return static_cast<double>(hour_ % 24); }
  // 1 in the coldest days of January, -1 in July.
  double Winter() const {
    return std::cos(2 * kPi * (static_cast<double>(hour_ % 8766) / 8766.0 - 15.0 / 365.25));
  }
  // From -1 to 1, new in each hour.
  double Jitter(std::uint64_t what) const { return 2 * At(what, hour_) - 1; }
  // From -1 to 1, changes smoothly within two days.
  double Drift(std::uint64_t what) const {
    constexpr std::int64_t kSpan = 48;
    const std::int64_t knot = hour_ / kSpan;
    const double way = static_cast<double>(hour_ % kSpan) / kSpan;
    const double bend = way * way * (3 - 2 * way);
    return 2 * (At(what, knot) * (1 - bend) + At(what, knot + 1) * bend) - 1;
  }
  // A bump of height 1 around an hour of the day.
  double Peak(double hour) const {
    const double away = (OfDay() - hour) / 2.0;
    return std::exp(-away * away);
  }
  // One or two bits of 24 in one of some fifty hours.
  std::uint32_t Situation() const {
    const std::uint64_t draw = Mix(Mix(seed_, 90), static_cast<std::uint64_t>(hour_));
    if (draw % 50 != 0) return 0;
    return (1u << (draw >> 8) % 24) | (1u << (draw >> 16) % 8);
  }

 private:
  double At(std::uint64_t what, std::int64_t place) const {
    return Fraction(Mix(Mix(seed_, what), static_cast<std::uint64_t>(place)));
  }
  std::uint64_t seed_;
  std::int64_t hour_;
};

// Tonnes in a cubic metre of water.
double Density(double celsius) { return 1.0003 - 4.0e-6 * celsius * celsius; }

double Outdoor(const HourOf& hour) {
  return 5 - 15 * hour.Winter() + 3.5 * std::cos(2 * kPi * (hour.OfDay() - 15) / 24) +
         5 * hour.Drift(1);
}

void MeasureTemperatures(const HourOf& hour, Measured& measured) {
  auto& v = measured.values;
  const double outdoor = Outdoor(hour);
  const double demand = std::clamp(18 - outdoor, 3.0, 50.0);
  v[kTvoz] = outdoor;
  v[kT1] = std::max(65.0, 48 + 1.35 * demand) + 0.6 * hour.Jitter(2);
  v[kT2] = v[kT1] - 8 - 0.62 * demand + 0.4 * hour.Jitter(3);
  v[kT3] = 56 + 3 * hour.Drift(4);
  v[kDt12] = v[kT1] - v[kT2];
  v[kThv] = 9 - 4 * hour.Winter() + 0.5 * hour.Drift(5);
  v[kP1] = 6.2 + 0.4 * hour.Drift(6) + 0.05 * hour.Jitter(7);
  v[kP2] = v[kP1] - 1.6 - 0.1 * hour.Drift(8);
}

// The water that leaves the system as hot water (channel 3) is missing in the return.
void MeasureHeat(const HourOf& hour, Measured& measured) {
  MeasureTemperatures(hour, measured);
  auto& v = measured.values;
  v[kG3] = 0.25 + 0.9 * hour.Peak(7.5) + 1.1 * hour.Peak(20) + 0.1 * hour.Jitter(9);
  v[kG1] = 12 + 1.5 * hour.Drift(10) + 0.2 * hour.Jitter(11) + 0.8 * v[kG3];
  v[kG2] = v[kG1] - v[kG3];
  const std::size_t masses[] = {kM1, kM2, kM3};
  for (std::size_t i = 0; i < 3; ++i) v[masses[i]] = v[kG1 + i] * v[kTw];
  for (std::size_t i = 0; i < 3; ++i) v[kV1 + i] = v[masses[i]] / Density(v[kT1 + i]);
  // One kilocalorie a kilogram and degree: a thousandth of a gigacalorie a tonne and degree.
  v[kQ] = (v[kM1] * v[kT1] - v[kM2] * v[kT2] - v[kM3] * v[kThv]) / 1000;
  v[kQgvs] = v[kM3] * (v[kT3] - v[kThv]) / 1000;
}

// A volume at 20 degrees and 1.0332 kgf/cm2 of a volume at an absolute pressure and temperature.
double Standard(double volume, double pressure, double celsius) {
  return volume * pressure / 1.0332 * 293.15 / (273.15 + celsius);
}

void MeasureGas(const HourOf& hour, Measured& measured) {
  auto& v = measured.values;
  const double demand = 1 + 0.4 * hour.Winter() + 0.2 * hour.Drift(20);
  v[kPb] = 1.02 + 0.02 * hour.Drift(21);
  v[kT1] = 8 - 9 * hour.Winter() + hour.Drift(22);
  v[kT2] = v[kT1] + 0.5 + 0.2 * hour.Jitter(23);
  v[kT3] = Outdoor(hour);
  v[kP1] = 3.1 + 0.2 * hour.Drift(24);
  v[kP2] = 3.0 + 0.2 * hour.Drift(25);
  v[kP3] = 1.5 + 0.05 * hour.Jitter(26);
  v[kP4] = 0.4 + 0.02 * hour.Jitter(27);
  v[kQp1] = demand * (240 + 60 * hour.Peak(8) + 10 * hour.Jitter(28));
  v[kQp2] = demand * (150 + 40 * hour.Peak(19) + 10 * hour.Jitter(29));
  v[kQ1] = Standard(v[kQp1], v[kP1], v[kT1]);
  v[kQ2] = Standard(v[kQp2], v[kP2], v[kT2]);
  v[kDP1] = 2.0e-6 * v[kQp1] * v[kQp1];
  v[kDP2] = 2.0e-6 * v[kQp2] * v[kQp2];
  v[kDP3] = v[kDP1] + v[kDP2];
  v[kVp1] = v[kQp1] * v[kTw];
  v[kVp2] = v[kQp2] * v[kTw];
  v[kV1] = v[kQ1] * v[kTw];
  v[kV2] = v[kQ2] * v[kTw];
  v[kVp] = v[kVp1] + v[kVp2];
  v[kV] = v[kV1] + v[kV2];
  v[kVsn] = 0.02 * v[kV];
}

Measured Measure(const Plant& plant, std::int64_t index) {
  const HourOf hour(plant, index);
  Measured measured;
  measured.situation = hour.Situation();
  // The instrument counts three quarters of an hour in which something was wrong.
  measured.values[kTw] = measured.situation ? 0.75 : 1.0;
  measured.values[kTC] = measured.values[kTw];
  if (plant.site == Site::kHeat) {
    MeasureHeat(hour, measured);
  } else {
    MeasureGas(hour, measured);
  }
  return measured;
}

std::int64_t HourIndex(Moment moment) {
  return std::chrono::floor<std::chrono::hours>(moment).time_since_epoch().count();
}

}  // namespace

std::optional<Quantity> FindQuantity(std::string_view column) {
  const auto* found = std::find(std::begin(kColumns), std::end(kColumns), column);
  if (found == std::end(kColumns)) return std::nullopt;
  return static_cast<Quantity>(found - std::begin(kColumns));
}

Measured MeasuredHour(const Plant& plant, Moment moment) {
  return Measure(plant, HourIndex(moment));
}

Measured MeasuredPeriod(const Plant& plant, Moment begin, Moment end) {
  return RunningPeriod().Until(plant, begin, end);
}

Measured RunningPeriod::Until(const Plant& plant, Moment begin, Moment end) {
  const std::int64_t first = HourIndex(begin), last = HourIndex(end);
  if (plant != plant_ || first != first_ || last < last_) {
    *this = {};
    plant_ = plant;
    first_ = last_ = first;
  }
  for (; last_ < last; ++last_) {
    const Measured one = Measure(plant, last_);
    for (std::size_t i = 0; i < kQuantities; ++i) sums_.values[i] += one.values[i];
    sums_.situation |= one.situation;
  }
  Measured period = sums_;
  for (std::size_t i = 0; i < kQuantities && last > first; ++i) {
    if (!IsSum(i)) period.values[i] /= static_cast<double>(last - first);
  }
  return period;
}

}  // namespace simulator
