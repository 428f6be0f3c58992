// Tables of columns: what a record holds and how its column headers name it. One table writes the
// headers, sizes the record and tells the readers how to fill it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <tuple>

#include "TKSplDrv/records.h"

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
  // How the instrument writes the value, where its protocol knows several ways; no host sees it.
  std::uint8_t form = 0;
};

using Columns = std::span<const Column>;

constexpr std::size_t RecordSize(Columns columns) {
  std::size_t size = 0;
  for (const Column& column : columns) size += column.width;
  return size;
}

// What a table is made of: single columns and other tables.
constexpr std::array<Column, 1> AsTable(const Column& column) { return {column}; }
template <std::size_t N>
constexpr std::array<Column, N> AsTable(const Column (&columns)[N]) {
  return std::to_array(columns);
}
template <std::size_t N>
constexpr std::array<Column, N> AsTable(const std::array<Column, N>& columns) {
  return columns;
}

// One table out of columns and tables, in their order.
template <typename... Parts>
constexpr auto Table(const Parts&... parts) {
  return std::apply([](const auto&... columns) { return std::array{columns...}; },
                    std::tuple_cat(AsTable(parts)...));
}

// The same columns in another role.
template <typename Part>
constexpr auto WithRole(Role role, const Part& part) {
  auto table = AsTable(part);
  for (Column& column : table) column.role = role;
  return table;
}

}  // namespace tav
