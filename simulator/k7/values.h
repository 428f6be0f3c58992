// What a simulated instrument of the newer protocol holds, as values rather than bytes: what a
// reading must deliver.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "simulator/k7/model.h"
#include "simulator/moment.h"
#include "simulator/plant.h"

namespace simulator::k7 {

// The values of a record by the names of their columns, UTF-8.
using Row = std::map<std::string, double>;

struct LogEntry {
  ClockTime time;
  std::string text;  // ASCII
};

// Throws std::invalid_argument when a setting is out of range.
class Values {
 public:
  explicit Values(const Settings& settings);

  const Model& GetModel() const { return model_; }
  const Settings& GetSettings() const { return settings_; }
  std::uint8_t Version() const;
  bool HasSystem(int system) const;

  Row CurrentRow(int system, Moment now) const;
  // They count since the first of September.
  Row TotalsRow(int system, Moment now) const;

  // A periodic record carries the moment at which its period began. It exists once the period has
  // ended, and as long as three whole years are kept.
  static Moment BeginOf(Archive kind, Moment moment);
  static Moment EndOf(Archive kind, Moment begin);
  static bool Exists(Archive kind, Moment begin, Moment now);
  Row ArchiveRow(Archive kind, int system, Moment begin) const;

  // A parameter of the database; none when there is no such parameter.
  std::optional<std::string> ParameterText(int channel, int number) const;
  // The two settings beside the database.
  static std::uint32_t SettingA() { return 0x00012345; }
  static std::uint32_t SettingB() { return 0x6789; }

  // The entries of a log, from the oldest on.
  std::vector<LogEntry> Log(Archive kind, int system, Moment now) const;

 private:
  std::uint64_t SeedOf(int system) const;
  Plant PlantOf(int system) const { return {Site::kHeat, SeedOf(system)}; }
  Row RowOf(int system, Moment begin, Moment end) const;
  Row RowOf(int system, Moment begin, Moment end, const Measured& measured) const;

  Settings settings_;
  const Model& model_;
  mutable RunningPeriod totals_;  // of the system that was asked for last
};

}  // namespace simulator::k7
