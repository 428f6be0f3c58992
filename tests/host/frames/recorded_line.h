// Readings of simulated instruments whose frames are explained as they pass.
#pragma once

#include <string>
#include <vector>

#include "host/frames/feed.h"
#include "simulator/simulator.h"

namespace frames_test {

struct Passed {
  host::frames::Frame frame;
  host::Bytes bytes;
};

// Everything that passes in a reading of all groups. Bytes that the instrument sent and the driver
// did not read are dropped before the next request, as every line of the program does.
std::vector<Passed> Record(const simulator::Settings& settings);

}  // namespace frames_test
