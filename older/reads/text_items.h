// The text items of the parameter databases: each is one column's value written out, in 8 or 16
// characters of code page 866 that are padded with blanks or zeros. Bytes in, bytes out.
#pragma once

#include <cstdint>
#include <span>

#include "common/format.h"
#include "older/tables.h"

namespace older {

inline constexpr std::size_t kItemSize = 8;       // characters
inline constexpr std::size_t kLongItemSize = 16;  // of a text that 8 do not hold

constexpr std::size_t ItemSize(const Column& column) {
  return column.type == Type::kChars && column.width > kItemSize + 1 ? kLongItemSize : kItemSize;
}

// Bytes of all items of a database; they stand in column order without gaps.
constexpr std::size_t ItemsSize(Columns columns) {
  std::size_t size = 0;
  for (const Column& column : columns) size += ItemSize(column);
  return size;
}

// How a date column is written, its form: numbers, each but the last followed by any one character.
enum class DateForm : std::uint8_t {
  kNone,
  kTimeOfDay,  // hour, minute, second
  kDate,       // day, month, year of two digits
  kDayOfYear,  // day, month
};

// Whether every column of a database can be written as a text item.
constexpr bool ConsistsOfItems(Columns columns) {
  for (const Column& column : columns) {
    if (column.type == Type::kDouble) return false;
    if ((column.type == Type::kDateTime) != (column.form != 0)) return false;
  }
  return true;
}

// item is ItemSize(column) long, value as wide as the column. A number counts by its leading part
// and wraps to the column's width; a date must match its whole form, and what it does not tell is
// year 1, month 1, day 1, time 0. A blank item is zero. False when the item does not parse; value
// is then zero.
bool DecodeItem(const Column& column, std::span<const std::uint8_t> item,
                std::span<std::uint8_t> value);

// The item as a message shows it: in code page 1251, without trailing blanks.
common::ShortText ItemText(std::span<const std::uint8_t> item);

// A text of code page 866 up to its first zero, in code page 1251, and zeros up to value's width.
// Blanks stay. value is at least as wide as text.
void DecodeText(std::span<const std::uint8_t> text, std::span<std::uint8_t> value);

}  // namespace older
