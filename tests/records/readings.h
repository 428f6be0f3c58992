// Readings of simulated instruments, taken apart: what the driver gives for a model.
#pragma once

#include <string>
#include <vector>

#include "TKSplDrv/records.h"
#include "simulator/simulator.h"
#include "tests/support/sections.h"

namespace records {

// Every section of a batch reading over the end of a month, in the order of the stream.
std::vector<support::Section> Batch(const simulator::Settings& settings, tav::Mode mode);
// The sections of one cycle of continuous reading in which an hour and a day are due.
std::vector<support::Section> ContinuousCycle(const simulator::Settings& settings);

// A text of code page 1251: ASCII and Russian letters. Throws std::out_of_range for others.
std::string Utf8(const std::string& text);

}  // namespace records
