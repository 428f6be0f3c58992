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
  double pressure, heat;     // of one kgf/cm2, of one Gcal
  const char* pressureText;  // in the database of a model 721
};
constexpr const char* kPressureText = "кгс/см2";
constexpr Units kUnits[] = {
    {1, 1, kPressureText}, {0.0980665, 4.1868, "МПа"}, {0.980665, 1.163, "бар"}};

// A code that names no unit leaves the values as they are measured.
const Units& UnitsOf(int code) {
  return kUnits[static_cast<std::size_t>(code) < std::size(kUnits) ? code : 0];
}

bool IsPressure(std::size_t quantity) { return quantity >= kP1 && quantity <= kPb; }
bool IsHeat(std::size_t quantity) { return quantity == kQ || quantity == kQgvs; }

Moment MonthBefore(Moment stamp) {
  ClockTime time = ToClockTime(stamp - days{1});
  time.day = 1;
  return ToMoment(time);
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

void Row::TakeDifferenceAsM3() {
  Set(kM3, static_cast<float>(Get(kM1)) - static_cast<float>(Get(kM2)));
}

Values::Values(const Settings& settings) : settings_(settings), model_(FindModel(settings.model)) {
  CheckSettings(settings_);
}

std::uint8_t Values::Version() const {
  const bool units1 = model_.unitsOfVersion != nullptr && settings_.special.unitsCode == 1;
  return static_cast<std::uint8_t>(
      settings_.special.version.value_or(units1 ? model_.versionOfUnits1 : model_.version));
}

int Values::UnitsCode() const {
  return model_.unitsOfVersion != nullptr ? model_.unitsOfVersion(Version())
                                          : settings_.special.unitsCode;
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
  const Units& units = UnitsOf(UnitsCode());
  for (std::size_t i = 0; i < kQuantities; ++i) {
    const auto quantity = static_cast<Quantity>(i);
    if (IsPressure(i)) row.Set(quantity, row.Get(quantity) * units.pressure);
    if (IsHeat(i)) row.Set(quantity, row.Get(quantity) * units.heat);
  }
  return row;
}

std::string Values::InUnits(std::string text) const {
  const std::size_t length = std::string_view(kPressureText).size();
  if (text.starts_with(kPressureText)) text.replace(0, length, UnitsOf(UnitsCode()).pressureText);
  return text;
}

Row Values::MeasuredRow(Archive kind, int system, Moment stamp) const {
  return InUnits(MeasuredPeriod(PlantOf(system), BeginOf(kind, stamp), stamp), system);
}

Row Values::ArchiveRow(Archive kind, int system, Moment stamp) const {
  Row row = MeasuredRow(kind, system, stamp);
  if (model_.completeArchive != nullptr) model_.completeArchive(kind, row);
  return row;
}

Row Values::CurrentRow(int system, Moment now) const {
  Row row = InUnits(MeasuredHour(PlantOf(system), now), system);
  if (model_.completeCurrent != nullptr) model_.completeCurrent(Version(), row);
  return row;
}

Row Values::TotalsRow(int system, Moment now) const {
  const Moment hour = std::chrono::floor<hours>(now);
  return InUnits(totals_.Until(PlantOf(system), LastSeptember(now), hour), system);
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
  return InUnits(parameter.text);
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
