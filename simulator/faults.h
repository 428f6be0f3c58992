// Replies that go wrong on request.
#pragma once

#include <memory>
#include <span>

#include "simulator/instrument.h"

namespace simulator {

// The faults that every instrument has: its line's.
std::span<const FaultKind> LineFaults();

// The instrument with the faults that the settings ask for, of the line's or of its own ones.
// Exchanges that get a reply are counted, from 1 on. Throws std::invalid_argument for a fault that
// is not among them or whose numbers make no sense.
std::unique_ptr<Instrument> WithFaults(std::unique_ptr<Instrument> instrument,
                                       std::span<const FaultKind> own, const Settings& settings);

}  // namespace simulator
