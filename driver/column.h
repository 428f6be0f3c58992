// Tables of columns: what a record holds and how its column headers name it. One table writes the
// headers, sizes the record and tells the readers how to fill it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <utility>

#include "TKSplDrv/records.h"
#include "common/does_not_compile.h"

namespace tav {

// A unit that stands in the table, or one that the instrument's settings choose.
struct Unit {
  // How many units the settings of an instrument can choose at most.
  static constexpr int kChoices = 8;

  const char* text;  // null: the chosen unit number choice
  std::uint8_t choice = 0;

  consteval Unit(const char* fixed) : text(fixed) {}  // NOLINT: a text is a unit
  static consteval Unit Chosen(std::uint8_t choice) {
    Unit unit(nullptr);
    unit.choice = choice;
    return unit;
  }
};

// The units that the settings chose; null: the settings name none, and a layout stops there.
using ChosenUnits = std::array<const char*, Unit::kChoices>;

struct Column {
  const char* name;
  Type type;
  Unit unit;
  Role role = Role::kValue;
  const char* caption = nullptr;  // null: the name again
  const char* group = nullptr;    // null: kDefaultGroup
  std::uint8_t width = WidthOf(type);
};

using Columns = std::span<const Column>;

constexpr std::size_t RecordSize(Columns columns) {
  std::size_t size = 0;
  for (const Column& column : columns) size += column.width;
  return size;
}

// One table of N columns out of several; another number of columns does not compile.
template <std::size_t N>
consteval std::array<Column, N> Join(std::initializer_list<Columns> parts) {
  std::size_t count = 0;
  for (const Columns& part : parts) count += part.size();
  if (count != N) common::DoesNotCompile("the parts have another number of columns");
  const auto at = [parts](std::size_t index) {
    const Columns* part = parts.begin();
    for (; index >= part->size(); ++part) index -= part->size();
    return (*part)[index];
  };
  return [&]<std::size_t... I>(std::index_sequence<I...>) {
    return std::array<Column, N>{at(I)...};
  }
  (std::make_index_sequence<N>());
}

}  // namespace tav
