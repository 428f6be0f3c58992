// A simulated instrument at the other end of a test's line, without any transport.
#pragma once

#include <memory>

#include "simulator/simulator.h"
#include "tests/support/fake_port.h"

namespace support {

// The time of the tests' clock when it is reset.
inline constexpr simulator::ClockTime kTestTime{2016, 9, 4, 13, 5, 9};

// The instrument stays with the port. Its clock stands at settings.clock, or else at kTestTime.
// Complaints about requests fail the test.
void Connect(FakePort& port, simulator::Settings settings);

}  // namespace support
