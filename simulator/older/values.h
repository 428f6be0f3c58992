// What a simulated instrument holds, as values rather than bytes: what a reading must deliver.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulator/older/model.h"
#include "simulator/plant.h"

namespace simulator::older {

// The values of one record by the names of its columns, in the units that the instrument reports.
class Row {
 public:
  Row(Measured measured, int mode) : measured_(measured), mode_(mode) {}
  // A measured quantity, NS or SP. Throws std::out_of_range for another column.
  double Value(std::string_view column) const;
  void Set(Quantity quantity, double value) { measured_.values[quantity] = value; }
  double Get(Quantity quantity) const { return measured_.values[quantity]; }
  // Where a record has no third mass, a host takes the difference of the two that it has.
  void TakeDifferenceAsM3();
  std::uint32_t Situation() const { return measured_.situation; }
  int Mode() const { return mode_; }

 private:
  Measured measured_;
  int mode_;
};

struct LogEntry {
  ClockTime time;
  std::string change;  // UTF-8, up to 15 letters
  std::uint8_t situation = 0, flag = 0;
};

// Heat systems count from 1; a model with one system has system 1. Throws std::invalid_argument
// when a setting is out of range.
class Values {
 public:
  explicit Values(const Settings& settings);

  const Model& GetModel() const { return model_; }
  const Settings& GetSettings() const { return settings_; }
  std::uint8_t Version() const;

  // An archive record carries the time at which it was closed: the hourly record of 13:00 holds
  // the hour from 12:00 on, the daily record of the 4th the 3rd, the monthly one of September
  // August. A record exists once it is closed, and as long as three whole years are kept.
  static bool Exists(Moment stamp, Moment now);
  // The stamp is a full hour, a midnight, or the midnight that begins a month. The row is what a
  // host makes of the record: a model 521 hourly record without what its mode code leaves out.
  Row ArchiveRow(Archive kind, int system, Moment stamp) const;
  // The same with everything that is measured.
  Row MeasuredRow(Archive kind, int system, Moment stamp) const;
  // Current values; the totals count since the 1st of September.
  Row CurrentRow(int system, Moment now) const;
  Row TotalsRow(int system, Moment now) const;

  // The text of a database column, UTF-8, without padding; system 0 is the common database or the
  // only one. Throws std::out_of_range for a column that isn't there.
  std::string ParameterText(int system, std::string_view column) const;
  std::string ParameterText(int system, const Parameter& parameter) const;

  // Both logs of a system, from the oldest entry on.
  std::vector<LogEntry> Log(int system, Moment now) const;

 private:
  Plant PlantOf(int system) const;
  int ModeOf(int system) const;
  int UnitsCode() const;
  Row InUnits(const Measured& measured, int system) const;
  std::string InUnits(std::string text) const;

  Settings settings_;
  const Model& model_;
  mutable RunningPeriod totals_;  // of the system that was asked for last
};

}  // namespace simulator::older
