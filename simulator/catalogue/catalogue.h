// Every instrument that can be simulated, whatever its protocol.
#pragma once

#include <memory>

#include "simulator/instrument.h"

namespace simulator {

// An instrument with the faults that the settings ask for. Throws std::invalid_argument when a
// setting is out of range. now is asked at each request, whatever settings.clock says.
std::unique_ptr<Instrument> MakeInstrument(const Settings& settings, Clock now);
// The clock that the settings ask for.
Clock ClockOf(const Settings& settings);

}  // namespace simulator
