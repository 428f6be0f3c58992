// Blocks that are read as a whole: a parameter database, current values or totals.
#pragma once

#include <cstdint>
#include <span>

#include "older/session/attempts.h"
#include "older/session/reader_state.h"

namespace older {

struct Block;

// Reads the block of a heat system (1 or 2) into record, which is RecordSize(block.columns) long,
// under the host's attempts.
using ReadBlock = ReadResult (*)(TKSplImpl& reader, const Block& block, int system,
                                 std::span<std::uint8_t> record);

struct Block {
  Columns columns;
  ReadBlock read;
  const char* attempts;                    // second text of the reports of failed attempts
  const char* failure;                     // second text of the reader's own error message
  std::uint16_t place[kHeatSystems] = {};  // by heat system: address or page, as read takes it
  bool reopensSession = false;             // between two attempts
};

}  // namespace older
