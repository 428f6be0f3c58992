// Putting tables of columns together at compile time.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "common/cp1251.h"
#include "k7/tables.h"

namespace k7 {

template <std::size_t N>
using ColumnTable = std::array<Column, N>;

// A column has no empty state to start a table from.
template <std::size_t... I>
constexpr ColumnTable<sizeof...(I)> Repeated(const Column& column, std::index_sequence<I...>) {
  return {((void)I, column)...};
}
template <std::size_t N>
constexpr ColumnTable<N> Repeated(const Column& column) {
  return Repeated(column, std::make_index_sequence<N>());
}

// Tables one behind the other.
template <std::size_t First, std::size_t... N>
constexpr auto Join(const ColumnTable<First>& first, const ColumnTable<N>&... others) {
  auto result = Repeated<First + (N + ... + 0)>(first[0]);
  std::size_t count = 0;
  const auto append = [&](const auto& table) {
    for (const Column& column : table) result[count++] = column;
  };
  append(first);
  (append(others), ...);
  return result;
}

template <std::size_t N>
constexpr ColumnTable<N> WithRole(Role role, ColumnTable<N> table) {
  for (Column& column : table) column.role = role;
  return table;
}

template <std::size_t N>
constexpr ColumnTable<N> AsFloats(ColumnTable<N> table) {
  for (Column& column : table) {
    column.type = Type::kFloat;
    column.width = WidthOf(Type::kFloat);
  }
  return table;
}

// A prefix and a number of a fixed number of digits, or of as few as it has.
using NumberedText = std::array<char, 8>;
constexpr NumberedText Numbered(const char* prefix, unsigned number, std::size_t leastDigits) {
  NumberedText text{};
  std::size_t size = 0;
  while (prefix[size] != '\0') {
    text[size] = prefix[size];
    ++size;
  }
  std::size_t digits = 1;
  for (unsigned rest = number / 10; rest != 0; rest /= 10) ++digits;
  if (digits < leastDigits) digits = leastDigits;
  for (std::size_t i = digits; i-- > 0; number /= 10) {
    text[size + i] = static_cast<char>('0' + number % 10);
  }
  return text;
}

// The texts of the numbers First, First + 1, ...
template <std::size_t N>
constexpr std::array<NumberedText, N> NumberedTexts(const char* prefix, unsigned first,
                                                    std::size_t leastDigits) {
  std::array<NumberedText, N> texts{};
  for (std::size_t i = 0; i < N; ++i) {
    texts[i] = Numbered(prefix, first + static_cast<unsigned>(i), leastDigits);
  }
  return texts;
}

constexpr bool SameText(const char* left, const char* right) {
  return std::string_view(left) == right;
}

}  // namespace k7
