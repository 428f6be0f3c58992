// Replies that go wrong on request.
#pragma once

#include <memory>

#include "simulator/instrument.h"

namespace simulator {

// The instrument with faults in its replies: each strikes on every Nth exchange that gets a reply.
// Throws std::invalid_argument for a kind that the instrument doesn't know.
std::unique_ptr<Instrument> WithFaults(std::unique_ptr<Instrument> instrument,
                                       const std::vector<Fault>& faults, std::uint32_t seed);

}  // namespace simulator
