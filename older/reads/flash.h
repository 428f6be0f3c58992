// Flash as the parameter databases and logs stand in it.
#pragma once

#include "older/reader_state.h"

namespace older {

// Fills items (a multiple of 8 bytes) with the 8-byte texts of as many 16-byte rows, from the start
// of a page on.
ExchangeError ReadFlashRows(TKSplImpl& reader, std::uint16_t firstPage,
                            std::span<std::uint8_t> items);

// Fills data (a multiple of 8 bytes) with what stands from a byte address on. More than the
// instrument's 10240 bytes are refused with a message and kNoBuffer.
ExchangeError ReadFlashBytes(TKSplImpl& reader, std::uint16_t address,
                             std::span<std::uint8_t> data);

}  // namespace older
