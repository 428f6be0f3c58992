// Several instruments on one line.
#pragma once

#include <memory>
#include <vector>

#include "simulator/instrument.h"

namespace simulator {

// Each hears every byte. Where two answer the same request, their replies spoil each other.
std::unique_ptr<Instrument> OnSharedLine(std::vector<std::unique_ptr<Instrument>> instruments);

}  // namespace simulator
