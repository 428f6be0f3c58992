// The values of a row.
//
// Types and their widths: f 4-byte and d 8-byte float, L 4-byte, S 2-byte and B 1-byte unsigned
// integer, all little-endian; t a 7-byte TAVDT; c characters of any width. A column of another type
// or width gives its bytes in hexadecimal.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "host/stream/section.h"

namespace host {

// Nothing: the row was cut short before this value.
using Cell = std::variant<std::monostate, std::uint32_t, float, double, TAVDT, std::string>;

// bytes holds exactly the column's width.
Cell DecodeCell(const Column& column, ByteView bytes);

// One cell per column, and one more with the bytes in hexadecimal that no column describes.
std::vector<Cell> DecodeRow(const Section& section, ByteView row);

// Shortest text that gives the same number again, the same on every system.
std::string NumberText(float value);
std::string NumberText(double value);

// "2016-09-04 13:05:09". What the instrument keeps without a year has year 1: a time of day gives
// "13:05:09", a day of the year "09-04".
std::string DateText(const TAVDT& time);

// Empty for nothing.
std::string CellText(const Cell& cell);

// "0x00FF".
std::string HexText(ByteView bytes);

}  // namespace host
