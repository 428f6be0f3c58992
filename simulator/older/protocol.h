// The older protocol, as the catalogue of instruments sees it.
#pragma once

#include "simulator/instrument.h"

namespace simulator::older {

extern const Protocol kProtocol;

}  // namespace simulator::older
