#include "simulator/k7/values.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <stdexcept>

#include "simulator/plant.h"
#include "simulator/random.h"
#include "simulator/settings.h"

namespace simulator::k7 {
namespace {

using std::chrono::days;
using std::chrono::hours;

constexpr int kIdleMode = 'c';

// Of one kgf/cm2, by the code of the pressure unit.
constexpr double kPressureUnits[] = {1, 0.0980665, 0.980665};

constexpr const char* kTexts[] = {
    "0",
    "1",
    "12.5",
    "65",
    "0.02",
    "04.09.16",
    "00:00",
    "100.000",
    "-",
    "",
    "a text that is longer than the fifty characters which a host keeps of it"};

constexpr const char* kChanges[] = {"F009=5.0", "F003=16:05:09", "F000=0", "RESET", "F057=12"};
constexpr const char* kEvents[] = {"POWER OFF", "POWER ON", "t1>max", "G1<min", "dt<min"};
constexpr std::int64_t kHoursPerEntry = 29;

// What an integer and a float hold exactly.
double Rounded(double value) { return std::round(value * 4096) / 4096; }

void PutMeasured(Row& row, const Measured& measured) {
  for (const char* name : {"t1", "t2", "t3", "dt_1_2", "thv", "tvoz", "P1", "P2", "V1", "V2", "V3",
                           "M1", "M2", "M3", "Q", "Qgvs", "Tw"}) {
    row[name] = Rounded(measured.values[*FindQuantity(name)]);
  }
  row["t4"] = row["t3"] - 2.5;
  row["P3"] = row["P1"] - 0.75;
  row["Phv"] = row["P2"] - 0.5;
  row["P4"] = row["P2"] - 0.25;
}

void PutFlows(Row& row) {
  const double time = row["Tw"] > 0 ? row["Tw"] : 1;
  for (const char* channel : {"1", "2", "3"}) {
    row[std::string("G") + channel] = row[std::string("V") + channel] / time;
    row[std::string("Gм") + channel] = row[std::string("M") + channel] / time;
  }
}

// Hours in which something was wrong, shared out among the situations.
void PutTimes(Row& row, std::uint32_t situation, double all) {
  const double wrong = all - row["Tw"];
  row["Ti"] = all;
  row["Tns"] = wrong;
  row["Tmin"] = wrong / 2;
  row["Tmax"] = wrong / 4;
  row["Ttd"] = wrong / 8;
  row["Tep"] = wrong / 16;
  row["Tf"] = wrong / 32;
  for (unsigned i = 1; i <= 16; ++i) {
    row["TC" + std::to_string(i)] = (situation >> i) & 1 ? wrong : 0.125 * i;
  }
}

}  // namespace

Values::Values(const Settings& settings) : settings_(settings), model_(FindModel(settings.model)) {
  CheckSettings(settings_);
}

std::uint8_t Values::Version() const {
  return static_cast<std::uint8_t>(settings_.special.version.value_or(model_.version));
}

bool Values::HasSystem(int system) const {
  return system >= model_.firstSystem && system <= model_.lastSystem;
}

std::uint64_t Values::SeedOf(int system) const {
  return Mix(settings_.seed, static_cast<std::uint64_t>(system) + 7);
}

Row Values::RowOf(int system, Moment begin, Moment end) const {
  return RowOf(system, begin, end, MeasuredPeriod(PlantOf(system), begin, end));
}

Row Values::RowOf(int system, Moment begin, Moment end, const Measured& measured) const {
  Row row;
  PutMeasured(row, measured);
  PutFlows(row);
  PutTimes(row, measured.situation, static_cast<double>((end - begin) / hours{1}));
  const int unit = settings_.special.unitsCode;
  for (const char* name : {"P1", "P2", "P3", "Phv", "P4"})
    row[name] *= kPressureUnits[std::min(unit, 2)];
  row["SP"] = system == settings_.special.idleSystem && system > 0
                  ? kIdleMode
                  : settings_.special.modeCode.value_or(0);
  row["NS"] = measured.situation;
  row["DS"] = static_cast<double>(
      1 + Mix(SeedOf(system), static_cast<std::uint64_t>(begin.time_since_epoch().count())) % 4000);
  row[""] = 777;
  return row;
}

Row Values::CurrentRow(int system, Moment now) const {
  const Moment hour = std::chrono::floor<hours>(now);
  return RowOf(system, hour, hour + hours{1});
}

Row Values::TotalsRow(int system, Moment now) const {
  const Moment begin = LastSeptember(now), end = std::chrono::floor<hours>(now);
  return RowOf(system, begin, end, totals_.Until(PlantOf(system), begin, end));
}

Moment Values::BeginOf(Archive kind, Moment moment) {
  if (kind == Archive::kHourly) return std::chrono::floor<hours>(moment);
  ClockTime time = ToClockTime(std::chrono::floor<days>(moment));
  if (kind == Archive::kMonthly) time.day = 1;
  return ToMoment(time);
}

Moment Values::EndOf(Archive kind, Moment begin) {
  if (kind == Archive::kHourly) return begin + hours{1};
  if (kind == Archive::kMonthly) return BeginOf(kind, begin + days{31});
  return begin + days{1};
}

bool Values::Exists(Archive kind, Moment begin, Moment now) {
  const Moment oldest = ToMoment({ToClockTime(now).year - 3, 1, 1, 0, 0, 0});
  return begin >= oldest && EndOf(kind, begin) <= now;
}

Row Values::ArchiveRow(Archive kind, int system, Moment begin) const {
  const Moment end = EndOf(kind, begin);
  Row row = RowOf(system, begin, end);
  if (kind != Archive::kControl) return row;
  // Volumes, masses, heat and times are totals as they stood at the end of the day.
  const Moment since = LastSeptember(begin);
  const Row totals = RowOf(system, since, end, totals_.Until(PlantOf(system), since, end));
  for (auto& [name, value] : row) {
    if (!name.empty() && std::strchr("VMQT", name.front()) != nullptr) value = totals.at(name);
  }
  return row;
}

std::optional<std::string> Values::ParameterText(int channel, int number) const {
  const auto special = settings_.special.parameters.find(fmt::format("F{:03}", number));
  if (special != settings_.special.parameters.end()) return special->second;
  if (channel == 0 && number == model_.serialNumber) {
    return std::to_string(20000000 + Mix(settings_.seed) % 6000000);
  }
  if (channel == 0 && (number == model_.pressureUnit || number == model_.heatUnit)) {
    return std::to_string(settings_.special.unitsCode);
  }
  for (const ParameterRange& range : model_.database) {
    if (channel != range.channel || number < range.first || number > range.last) continue;
    const std::uint64_t draw = Mix(SeedOf(channel), static_cast<std::uint64_t>(number));
    return kTexts[draw % std::size(kTexts)];
  }
  return std::nullopt;
}

std::vector<LogEntry> Values::Log(Archive kind, int system, Moment now) const {
  const bool changes = kind == Archive::kChanges;
  const std::uint64_t seed = Mix(SeedOf(system), static_cast<std::uint64_t>(kind));
  const std::int64_t newest =
      std::chrono::floor<hours>(now).time_since_epoch().count() / kHoursPerEntry - 1;
  std::vector<LogEntry> entries;
  for (std::int64_t i = newest - settings_.special.logEntries + 1; i <= newest; ++i) {
    const std::uint64_t draw = Mix(seed, static_cast<std::uint64_t>(i));
    const Moment time = Moment{hours{i * kHoursPerEntry}} + std::chrono::seconds{draw % 50000};
    entries.push_back({ToClockTime(time), (changes ? kChanges : kEvents)[(draw >> 20) % 5]});
  }
  return entries;
}

}  // namespace simulator::k7
