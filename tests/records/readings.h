// Readings of simulated instruments, taken apart: what the driver gives for a model.
#pragma once

#include <string>
#include <vector>

#include "TKSplDrv/records.h"
#include "simulator/simulator.h"
#include "tests/support/sections.h"

namespace records {

// The write calls of a reading, by which the tests' decoder takes it apart.
using Writes = std::vector<support::Bytes>;

// All groups from 2016-08-25 22:10 to 2016-09-02 01:20, read at 2016-09-04 13:05:09.
Writes Batch(const simulator::Settings& settings, tav::Mode mode);
// One cycle of continuous reading in which an hour and a day are due.
Writes ContinuousCycle(const simulator::Settings& settings);

// A text of code page 1251: ASCII and Russian letters. Throws std::out_of_range for others.
std::string Utf8(const std::string& text);

}  // namespace records
