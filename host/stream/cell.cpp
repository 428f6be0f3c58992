#include "host/stream/cell.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "host/stream/code_page.h"

namespace host {
namespace {

template <class Value>
Value Load(ByteView bytes) {
  Value value{};
  std::memcpy(&value, bytes.data(), sizeof value);
  return value;
}

std::uint32_t LoadUnsigned(ByteView bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) value = value << 8U | bytes[i];
  return value;
}

bool IsControl(unsigned char byte) { return byte < 0x20 || byte == 0x7F; }

// The text up to its terminator, without trailing blanks; a field of other bytes stays readable as
// hexadecimal.
std::string FieldText(ByteView bytes) {
  const auto terminator = std::find(bytes.begin(), bytes.end(), 0);
  std::string text(bytes.begin(), terminator);
  if (std::any_of(bytes.begin(), terminator, IsControl)) {
    std::size_t length = bytes.size();
    while (bytes[length - 1] == 0) --length;
    return HexText(bytes.first(length));
  }
  text.erase(text.find_last_not_of(' ') + 1);
  return Utf8FromCp1251(text);
}

template <class Number>
std::string ShortestText(Number value) {
  if (std::isnan(value)) return "nan";
  char buffer[64];
  const auto end = std::to_chars(std::begin(buffer), std::end(buffer), value).ptr;
  return {buffer, end};
}

struct TextOf {
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(std::uint32_t value) const { return std::to_string(value); }
  std::string operator()(float value) const { return NumberText(value); }
  std::string operator()(double value) const { return NumberText(value); }
  std::string operator()(const TAVDT& value) const { return DateText(value); }
  std::string operator()(const std::string& value) const { return value; }
};

}  // namespace

std::string HexText(ByteView bytes) {
  std::string text = "0x";
  for (const unsigned char byte : bytes) text += fmt::format("{:02X}", byte);
  return text;
}

std::string NumberText(float value) { return ShortestText(value); }
std::string NumberText(double value) { return ShortestText(value); }

std::string DateText(const TAVDT& time) {
  const unsigned year = time.year, month = time.month, day = time.day;
  std::string clock = fmt::format("{:02}:{:02}:{:02}", time.hour, time.minute, time.second);
  if (year <= 1 && month <= 1 && day <= 1) return clock;
  if (year <= 1 && clock == "00:00:00") return fmt::format("{:02}-{:02}", month, day);
  return fmt::format("{:04}-{:02}-{:02} {}", year, month, day, clock);
}

std::string CellText(const Cell& cell) { return std::visit(TextOf{}, cell); }

Cell DecodeCell(const Column& column, ByteView bytes) {
  const std::size_t width = bytes.size();
  switch (column.type) {
    case 'f':
      if (width == sizeof(float)) return Load<float>(bytes);
      break;
    case 'd':
      if (width == sizeof(double)) return Load<double>(bytes);
      break;
    case 'L':
    case 'S':
    case 'B':
      if (width > 0 && width <= sizeof(std::uint32_t)) return LoadUnsigned(bytes);
      break;
    case 't':
      if (width == sizeof(TAVDT)) return Load<TAVDT>(bytes);
      break;
    case 'c':
      return FieldText(bytes);
    default:
      break;
  }
  return HexText(bytes);
}

std::vector<Cell> DecodeRow(const Section& section, ByteView row) {
  std::vector<Cell> cells;
  cells.reserve(section.columns.size() + 1);
  std::size_t at = 0;
  for (const Column& column : section.columns) {
    const bool whole = row.size() - at >= column.width;
    cells.push_back(whole ? DecodeCell(column, row.subspan(at, column.width)) : Cell{});
    // Nothing after a missing value is taken for another column.
    at = whole ? at + column.width : row.size();
  }
  if (at < row.size()) cells.emplace_back(HexText(row.subspan(at)));
  return cells;
}

}  // namespace host
