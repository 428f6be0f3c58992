#include "simulator/older/values.h"

#include <algorithm>
#include <stdexcept>

#include "simulator/random.h"
#include "simulator/settings.h"

namespace simulator::older {
namespace {

using std::chrono::days;
using std::chrono::hours;

constexpr int kIdleMode = 'c';

struct Units {
  double pressure, heat;  // of one kgf/cm2, of one Gcal
};
constexpr Units kUnits[] = {{1, 1}, {0.0980665, 4.1868}, {0.980665, 1.163}};

bool IsPressure(std::size_t quantity) { return quantity >= kP1 && quantity <= kPb; }
bool IsHeat(std::size_t quantity) { return quantity == kQ || quantity == kQgvs; }

// Version indexes from 10 on are the ones whose heat is in GJ and whose pressures are in MPa.
int UnitsOf521(int version) { return version >= 10 && version <= 15 ? 1 : 0; }

Moment MonthBefore(Moment stamp) {
  ClockTime time = ToClockTime(stamp - days{1});
  time.day = 1;
  return ToMoment(time);
}

Moment LastSeptember(Moment now) {
  const ClockTime time = ToClockTime(now);
  return ToMoment({time.month >= 9 ? time.year : time.year - 1, 9, 1, 0, 0, 0});
}

Moment BeginOf(Archive kind, Moment stamp) {
  switch (kind) {
    case Archive::kHourly:
      return stamp - hours{1};
    case Archive::kDaily:
      return stamp - days{1};
    case Archive::kMonthly:
      break;
  }
  return MonthBefore(stamp);
}

// The changes that the logs tell of. Up to 15 letters.
constexpr const char* kChanges[] = {"ДО=04.09.16", "tхк=5.0", "SP=0",        "Сброс итогов",
                                    "C1=100",      "KTh=1.2", "Время +15 с", "Ёмкость бат. 97"};

// The entries of a log lie a day or two apart, at times that stay as the clock moves on.
constexpr std::int64_t kHoursPerEntry = 31;

LogEntry EntryAt(std::uint64_t seed, std::int64_t place) {
  const std::uint64_t draw = Mix(seed, static_cast<std::uint64_t>(place));
  const auto time = Moment{hours{place * kHoursPerEntry}} +
                    std::chrono::seconds{draw % (kHoursPerEntry * 3600 / 2)};
  return {ToClockTime(time), kChanges[(draw >> 20) % std::size(kChanges)],
          static_cast<std::uint8_t>(1 + (draw >> 30) % 24),
          static_cast<std::uint8_t>((draw >> 40) % 2)};
}

}  // namespace

double Row::Value(std::string_view column) const {
  if (column == "NS") return measured_.situation;
  if (column == "SP") return mode_;
  const std::optional<Quantity> quantity = FindQuantity(column);
  if (!quantity) throw std::out_of_range("no column " + std::string(column));
  return measured_.values[*quantity];
}

Values::Values(const Settings& settings) : settings_(settings), model_(FindModel(settings.model)) {
  CheckSettings(settings_);
}

std::uint8_t Values::Version() const {
  return static_cast<std::uint8_t>(settings_.special.version.value_or(model_.version));
}

bool Values::Exists(Moment stamp, Moment now) {
  const Moment oldest = ToMoment({ToClockTime(now).year - 3, 1, 1, 0, 0, 0});
  return stamp >= oldest && stamp <= now;
}

Plant Values::PlantOf(int system) const {
  return {model_.site, Mix(settings_.seed, static_cast<std::uint64_t>(system))};
}

int Values::ModeOf(int system) const {
  return system == settings_.special.idleSystem ? kIdleMode
                                                : settings_.special.modeCode.value_or(0);
}

Row Values::InUnits(const Measured& measured, int system) const {
  Row row(measured, ModeOf(system));
  if (model_.site == Site::kGas) return row;
  const int code = &model_ == &kModel521 ? UnitsOf521(Version()) : settings_.special.unitsCode;
  const Units& units = kUnits[code <= 2 ? code : 0];
  for (std::size_t i = 0; i < kQuantities; ++i) {
    const auto quantity = static_cast<Quantity>(i);
    if (IsPressure(i)) row.Set(quantity, row.Get(quantity) * units.pressure);
    if (IsHeat(i)) row.Set(quantity, row.Get(quantity) * units.heat);
  }
  return row;
}

Row Values::MeasuredRow(Archive kind, int system, Moment stamp) const {
  return InUnits(MeasuredPeriod(PlantOf(system), BeginOf(kind, stamp), stamp), system);
}

Row Values::ArchiveRow(Archive kind, int system, Moment stamp) const {
  Row row = MeasuredRow(kind, system, stamp);
  const bool of521 = &model_ == &kModel521;
  // Where the record has no third mass, a host takes the difference of the two that it has.
  if (model_.lacksM3 || (of521 && kind == Archive::kHourly && row.Mode() <= 2)) {
    row.Set(kM3, static_cast<float>(row.Get(kM1)) - static_cast<float>(row.Get(kM2)));
  }
  for (std::size_t i = kV1; i <= kM3 && of521 && kind == Archive::kHourly; ++i) {
    const auto quantity = static_cast<Quantity>(i);
    if (LeftOut521(row.Mode(), quantity)) row.Set(quantity, 0);
  }
  return row;
}

Row Values::CurrentRow(int system, Moment now) const {
  Row row = InUnits(MeasuredHour(PlantOf(system), now), system);
  if (&model_ == &kModel521 && Version() < 2) {  // these have no flows; a host says -1
    row.Set(kG1, -1);
    row.Set(kG2, -1);
  }
  return row;
}

Row Values::TotalsRow(int system, Moment now) const {
  const Moment hour = std::chrono::floor<hours>(now);
  return InUnits(MeasuredPeriod(PlantOf(system), LastSeptember(now), hour), system);
}

std::string Values::ParameterText(int system, std::string_view column) const {
  for (const Block& block : model_.blocks) {
    for (const Parameter& parameter : block.parameters) {
      if (block.system == system && parameter.column == column) {
        return ParameterText(system, parameter);
      }
    }
  }
  throw std::out_of_range("no parameter " + std::string(column));
}

std::string Values::ParameterText(int system, const Parameter& parameter) const {
  const std::string_view column = parameter.column;
  const auto special = settings_.special.parameters.find(parameter.column);
  if (special != settings_.special.parameters.end()) return special->second;
  if (column == settings_.special.brokenParameter) return "??.??";
  if (column == "SP") return std::to_string(ModeOf(std::max(system, 1)));
  if (column == "EI") return std::to_string(settings_.special.unitsCode);
  if (column == "KW") return std::to_string(100 + system);
  if (column == "NT") return std::to_string(settings_.number);
  // Eight digits that a float holds exactly.
  if (column == "ID") return std::to_string(10000000 + Mix(settings_.seed) % 6000000);
  return parameter.text;
}

std::vector<LogEntry> Values::Log(int system, Moment now) const {
  const std::uint64_t seed = Mix(PlantOf(system).seed, 91);
  const std::int64_t hour = std::chrono::floor<hours>(now).time_since_epoch().count();
  const std::int64_t newest = hour / kHoursPerEntry - 1;  // all of it lies before now
  std::vector<LogEntry> entries;
  for (std::int64_t i = newest - settings_.special.logEntries + 1; i <= newest; ++i) {
    entries.push_back(EntryAt(seed, i));
  }
  return entries;
}

}  // namespace simulator::older
