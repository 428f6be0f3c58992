// What settings of an instrument are allowed, whatever its protocol.
#pragma once

#include "simulator/simulator.h"

namespace simulator {

// Throws std::invalid_argument when a setting is out of range. The model is not looked at.
void CheckSettings(const Settings& settings);

}  // namespace simulator
