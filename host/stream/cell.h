// The values of a row.
//
// Numbers are little-endian, characters may be of any width. A column of an unknown type, or of a
// width that its type does not have, gives its bytes in hexadecimal.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/stream/section.h"

namespace host {

// Nothing: the row was cut short before this value.
using Cell = std::variant<std::monostate, std::uint32_t, float, double, TAVDT, std::string>;
using Cells = std::vector<Cell>;

// bytes holds exactly the column's width.
Cell DecodeCell(const Column& column, ByteView bytes);

// One cell per column, and one more with the bytes in hexadecimal that no column describes.
void DecodeRow(const Section& section, ByteView row, Cells& cells);

// Numbers take the shortest text that gives the same number again, the same on every system;
// nothing appends nothing.
void AppendCell(std::string& out, const Cell& cell);
std::string CellText(const Cell& cell);

// "2016-09-04 13:05:09". What the instrument keeps without a year has year 1: a time of day gives
// "13:05:09", a day of the year "09-04".
void AppendDate(std::string& out, const TAVDT& time);
std::string DateText(const TAVDT& time);

// "2016-09-04 13:05:09" back; none when it is no such text.
std::optional<TAVDT> ParseTime(const std::string& text);

// "0x00FF".
std::string HexText(ByteView bytes);

}  // namespace host
