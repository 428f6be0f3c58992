// Single columns of a record, found by their names when the driver is compiled.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "common/does_not_compile.h"
#include "older/tables.h"

namespace older {

// Where a column stands in its record, and what it holds.
struct Field {
  std::size_t offset = 0;
  Type type = Type::kByte;
  std::uint8_t width = 0;
};

// A name that the columns do not have does not compile.
consteval Field FieldOf(Columns columns, std::string_view name) {
  std::size_t offset = 0;
  for (const Column& column : columns) {
    if (name == column.name) return {offset, column.type, column.width};
    offset += column.width;
  }
  common::DoesNotCompile("no column has this name");
}

// The number that a field of a record holds: floats are truncated, texts parsed.
std::uint32_t NumberIn(const Field& field, std::span<const std::uint8_t> record);

}  // namespace older
