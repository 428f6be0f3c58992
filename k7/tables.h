// The tables of columns and the output stream, under their own names in this protocol.
#pragma once

#include <array>
#include <cstdint>

#include "driver/column.h"
#include "driver/record_stream.h"

namespace k7 {

using tav::ChosenUnits;
using tav::Column;
using tav::ColumnCount;
using tav::Columns;
using tav::ReadGroup;
using tav::RecordSize;
using tav::RecordStream;
using tav::Role;
using tav::Table;
using tav::TitleKind;
using tav::Type;
using tav::Unit;
using tav::WidthOf;
using tav::WithRole;

// One entry of a parameter database or of a log, in the instrument's characters, zero-filled.
inline constexpr std::uint8_t kEntrySize = 50;
using Entry = std::array<std::uint8_t, kEntrySize>;

}  // namespace k7
