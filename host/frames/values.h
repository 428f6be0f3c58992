// Values of columns as texts, and bytes told by the columns that the driver makes of them.
#pragma once

#include <functional>

#include "driver/column.h"
#include "host/frames/labels.h"

namespace host::frames {

// "t1", and where the instrument's own name is another one, "F003 (РКЧ)".
std::string NameOf(const tav::Column& column);
// "12.5 м3"; value: as it stands in a record.
std::string ValueText(const tav::Column& column, ByteView value);

// "0x12".
std::string Hex(unsigned value, int digits = 2);

// A stretch of a memory, before it is cut into frames.
struct Piece {
  std::size_t count = 0;
  std::string name{};
  std::string meaning{};
};

// Fills a zeroed record from bytes.
using Convert = std::function<void(ByteView bytes, std::span<std::uint8_t> record)>;
// The bytes by the columns that the driver makes of them: it is asked which column changes with a
// byte.
std::vector<Piece> PiecesOf(tav::Columns columns, ByteView bytes, const Convert& convert);

}  // namespace host::frames
