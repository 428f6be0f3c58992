// The newer protocol, as the catalogue of instruments sees it.
#pragma once

#include "simulator/instrument.h"

namespace simulator::k7 {

extern const Protocol kProtocol;

}  // namespace simulator::k7
