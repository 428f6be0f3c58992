// Parameter databases whose every parameter is a text item in flash. Items that do not parse are
// told to the host as "Rasmernost" and are zero.
#pragma once

#include "older/reads/block.h"

namespace older {

// block.place holds pages; each item stands in a 16-byte row.
ReadResult ReadTextRows(TKSplImpl& reader, const Block& block, int system,
                        std::span<std::uint8_t> record);

// block.place holds byte addresses; the items stand one behind the other.
ReadResult ReadTextItems(TKSplImpl& reader, const Block& block, int system,
                         std::span<std::uint8_t> record);

}  // namespace older
