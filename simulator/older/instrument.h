// A simulated instrument of the older protocol.
#pragma once

#include <memory>
#include <span>

#include "simulator/instrument.h"

namespace simulator::older {

// Throws std::invalid_argument when a setting is out of range.
std::unique_ptr<Instrument> MakeOlderInstrument(const Settings& settings, Clock now);
std::span<const FaultKind> FaultKinds();

}  // namespace simulator::older
