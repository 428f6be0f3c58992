// Replies of the newer protocol that go wrong, or that only look as if they did.
#pragma once

#include <span>

#include "simulator/instrument.h"

namespace simulator::k7 {

// They change long replies; short ones stay as they are.
std::span<const FaultKind> Faults();

}  // namespace simulator::k7
