// A whole reading of a simulated instrument, and what of it a test looks at.
#pragma once

#include <functional>

#include "simulator/older/values.h"
#include "tests/support/reading.h"
#include "tests/support/sections.h"
#include "tests/support/simulated_line.h"

namespace support {

// The settings of an ordinary instrument.
simulator::Settings Instrument(const std::string& model);

// The range goes over the end of a month, 2016-08-25 22:10 to 2016-09-02 01:20: two months, eight
// days, 172 hours.
struct SimulatedReading : Reading {
  explicit SimulatedReading(const simulator::Settings& settings, const std::string& groups = "");

  // Requests for which this returns true get no reply.
  void Lose(std::function<bool(const Bytes& request)> lost);
  void Range(const SYSTEMTIME& from, const SYSTEMTIME& to) { driver.SetupDateTime(from, to); }
  std::vector<Section> Sections() const { return TakeApart(stream.writes); }
  // The sections of a kind with this title; all of the kind when it is null.
  std::vector<Section> Sections(char kind, const char* title = nullptr) const;
  // Kinds and titles: "B ОВ, B ТВ1, ..."; of archives in continuous reading also the time of their
  // row: "H ТВ2 13:00:00".
  std::string Contents(std::size_t from = 0, bool times = false) const;

  simulator::older::Values values;  // what the instrument holds
};

}  // namespace support
