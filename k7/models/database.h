// A parameter database: which parameters are read, in which blocks, and the instrument's short
// names of them. One column per parameter, "F" and its number.
#pragma once

#include "common/cp1251.h"
#include "common/does_not_compile.h"
#include "k7/models/column_tables.h"
#include "k7/reads/parameter_block.h"

namespace k7 {

// "F000" and on, as far as any database goes.
inline constexpr auto kParameterNames = NumberedTexts<167>("F", 0, 3);

// The number of the parameter that the blocks hold at an index.
constexpr std::size_t ParameterAt(std::span<const ParameterBlock> blocks, std::size_t index) {
  const ParameterBlock* block = blocks.data();
  for (; index >= block->count; ++block) index -= block->count;
  return block->first + index;
}

// A column for each parameter of the blocks. Another number of captions does not compile.
template <std::size_t N>
constexpr std::array<Column, N> DatabaseColumns(std::span<const ParameterBlock> blocks,
                                                const char* const (&captions)[N]) {
  std::size_t count = 0;
  for (const ParameterBlock& block : blocks) count += block.count;
  if (count != N) common::DoesNotCompile("the captions are not as many as the parameters");
  return Generated<N>([&](std::size_t i) {
    return Column{kParameterNames[ParameterAt(blocks, i)].data(),
                  Type::kChars,
                  common::kCp1251<"код">.data(),
                  Role::kValue,
                  captions[i],
                  nullptr,
                  kEntrySize};
  });
}

}  // namespace k7
