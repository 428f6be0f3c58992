// Putting tables of columns together at compile time.
#pragma once

#include <array>
#include <cstddef>
#include <utility>

#include "k7/tables.h"

namespace k7 {

// The columns that a function returns for 0, 1, ...
template <std::size_t N, typename ColumnAt>
constexpr std::array<Column, N> Generated(ColumnAt at) {
  return [&]<std::size_t... I>(std::index_sequence<I...>) { return std::array{at(I)...}; }
  (std::make_index_sequence<N>());
}

// The same columns as floats.
template <typename Part>
constexpr auto AsFloats(const Part& part) {
  auto table = tav::AsTable(part);
  for (Column& column : table) {
    column.type = Type::kFloat;
    column.width = WidthOf(Type::kFloat);
  }
  return table;
}

// A prefix and a number of at least so many digits.
using NumberedText = std::array<char, 8>;
constexpr NumberedText Numbered(const char* prefix, std::size_t number, std::size_t leastDigits) {
  NumberedText text{};
  std::size_t size = 0;
  for (; prefix[size] != '\0'; ++size) text[size] = prefix[size];
  std::size_t digits = 1;
  for (std::size_t rest = number / 10; rest != 0; rest /= 10) ++digits;
  if (digits < leastDigits) digits = leastDigits;
  for (std::size_t i = digits; i-- > 0; number /= 10) {
    text[size + i] = static_cast<char>('0' + number % 10);
  }
  return text;
}

// The texts of the numbers first, first + 1, ...
template <std::size_t N>
constexpr std::array<NumberedText, N> NumberedTexts(const char* prefix, std::size_t first,
                                                    std::size_t leastDigits) {
  std::array<NumberedText, N> texts{};
  for (std::size_t i = 0; i < N; ++i) texts[i] = Numbered(prefix, first + i, leastDigits);
  return texts;
}

}  // namespace k7
