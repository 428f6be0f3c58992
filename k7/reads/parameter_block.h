// Reading a parameter database, block by block.
#pragma once

#include <cstdint>

#include "TKSplDrv/driver.h"
#include "k7/session/requests.h"
#include "k7/tables.h"

namespace k7 {

// Consecutive parameters that one request asks for.
struct ParameterBlock {
  std::uint16_t first;
  std::uint8_t count;
};

// Writes each parameter of the block, at most 20, to the host as an entry: empty ones after a reply
// to another command, which is reported and counts as failed. A query that the link failed counts
// as success and writes nothing: intended.
bool ReadParamBlock(TavDrvV1& driver, Requests& requests, RecordStream& out, std::uint8_t channel,
                    ParameterBlock block);

}  // namespace k7
