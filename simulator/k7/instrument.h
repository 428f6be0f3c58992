// Simulated instruments of the newer protocol.
#pragma once

#include <memory>
#include <span>

#include "simulator/instrument.h"

namespace simulator::k7 {

// Throws std::invalid_argument when a setting is out of range.
std::unique_ptr<Instrument> MakeK7Instrument(const Settings& settings, Clock now);

// Faults that only this protocol has. They change long replies; short ones stay as they are.
std::span<const FaultKind> FaultKinds();

}  // namespace simulator::k7
