#include "host/stream/cell.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>

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
void AppendNumber(std::string& out, Number value) {
  std::array<char, 64> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  out.append(buffer.data(), end);
}

template <class Float>
void AppendFloat(std::string& out, Float value) {
  if (std::isnan(value)) {
    out += "nan";  // without a sign
  } else {
    AppendNumber(out, value);
  }
}

// With zeros in front, at least so many digits.
void AppendDigits(std::string& out, unsigned value, std::size_t least) {
  const std::size_t begin = out.size();
  AppendNumber(out, value);
  const std::size_t digits = out.size() - begin;
  if (digits < least) out.insert(begin, least - digits, '0');
}

void AppendPair(std::string& out, unsigned first, char between, unsigned second) {
  AppendDigits(out, first, 2);
  out += between;
  AppendDigits(out, second, 2);
}

void AppendTimeOfDay(std::string& out, const TAVDT& time) {
  AppendPair(out, time.hour, ':', time.minute);
  out += ':';
  AppendDigits(out, time.second, 2);
}

struct Appender {
  std::string& out;

  void operator()(std::monostate) const {}
  void operator()(std::uint32_t value) const { AppendNumber(out, value); }
  void operator()(float value) const { AppendFloat(out, value); }
  void operator()(double value) const { AppendFloat(out, value); }
  void operator()(const TAVDT& value) const { AppendDate(out, value); }
  void operator()(const std::string& value) const { out += value; }
};

}  // namespace

std::optional<TAVDT> ParseTime(const std::string& text) {
  constexpr std::string_view kForm = "0000-00-00 00:00:00";
  if (text.size() != kForm.size()) return std::nullopt;
  for (std::size_t i = 0; i < kForm.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (kForm[i] == '0' ? !digit : text[i] != kForm[i]) return std::nullopt;
  }
  const auto number = [&](std::size_t place) {
    return static_cast<unsigned char>((text[place] - '0') * 10 + text[place + 1] - '0');
  };
  TAVDT time{};
  time.year = static_cast<unsigned short>(number(0) * 100 + number(2));
  time.month = number(5);
  time.day = number(8);
  time.hour = number(11);
  time.minute = number(14);
  time.second = number(17);
  return time;
}

std::string HexText(ByteView bytes) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  std::string text = "0x";
  for (const unsigned char byte : bytes) {
    text += kDigits[byte >> 4U];
    text += kDigits[byte & 0xFU];
  }
  return text;
}

void AppendDate(std::string& out, const TAVDT& time) {
  const bool noYear = time.year <= 1;
  if (noYear && time.month <= 1 && time.day <= 1) return AppendTimeOfDay(out, time);
  if (noYear && time.hour == 0 && time.minute == 0 && time.second == 0) {
    return AppendPair(out, time.month, '-', time.day);
  }
  AppendDigits(out, time.year, 4);
  out += '-';
  AppendPair(out, time.month, '-', time.day);
  out += ' ';
  AppendTimeOfDay(out, time);
}

std::string DateText(const TAVDT& time) {
  std::string text;
  AppendDate(text, time);
  return text;
}

void AppendCell(std::string& out, const Cell& cell) { std::visit(Appender{out}, cell); }

std::string CellText(const Cell& cell) {
  std::string text;
  AppendCell(text, cell);
  return text;
}

Cell DecodeCell(const Column& column, ByteView bytes) {
  const std::size_t width = bytes.size();
  switch (column.type) {
    case tav::Type::kFloat:
      if (width == sizeof(float)) return Load<float>(bytes);
      break;
    case tav::Type::kDouble:
      if (width == sizeof(double)) return Load<double>(bytes);
      break;
    case tav::Type::kInt32:
    case tav::Type::kInt16:
    case tav::Type::kByte:
      if (width <= sizeof(std::uint32_t)) return LoadUnsigned(bytes);
      break;
    case tav::Type::kDateTime:
      if (width == sizeof(TAVDT)) return Load<TAVDT>(bytes);
      break;
    case tav::Type::kChars:
      return FieldText(bytes);
  }
  return HexText(bytes);
}

void DecodeRow(const Section& section, ByteView row, Cells& cells) {
  cells.clear();
  std::size_t at = 0;
  for (const Column& column : section.columns) {
    const bool whole = row.size() - at >= column.width;
    cells.push_back(whole ? DecodeCell(column, row.subspan(at, column.width)) : Cell{});
    // Nothing after a missing value is taken for another column.
    at = whole ? at + column.width : row.size();
  }
  if (at < row.size()) cells.emplace_back(HexText(row.subspan(at)));
}

}  // namespace host
