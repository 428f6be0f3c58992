// Current values and totals: memory that holds a record as its columns describe it.
#pragma once

#include "older/reads/block.h"

namespace older {

// Reads the block at its address with one request; columns of floats hold instrument floats there
// and are converted, every other column is taken as it stands.
ReadResult ReadMemoryBlock(TKSplImpl& reader, const Block& block, int system,
                           std::span<std::uint8_t> record);

// Converts every float column of a record in place, once.
void ConvertFloats(Columns columns, std::span<std::uint8_t> record);

}  // namespace older
