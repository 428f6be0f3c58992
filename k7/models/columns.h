// Columns that the models share. The records that they describe are decoded by the same tables.
#pragma once

#include "common/cp1251.h"
#include "k7/models/column_tables.h"

namespace k7 {

// Units that the instrument's settings choose. The heat columns take theirs from the same three
// pressure units: intended.
inline constexpr std::uint8_t kPressureUnit = 0;
inline constexpr std::uint8_t kHeatUnit = 1;

namespace columns {

using namespace common::literals;

inline constexpr Column kDate = {"DT", Type::kDateTime, "Дата:время"_w, Role::kKey};

inline constexpr Column kState = {"SP", Type::kByte, "код"_w, Role::kValue, "СП"_w};

inline constexpr Column kFlows[] = {
    {"G1", Type::kFloat, "м3/час"_w},
    {"G2", Type::kFloat, "м3/час"_w},
    {"G3", Type::kFloat, "м3/час"_w},
};

inline constexpr Column kTemperatures[] = {
    {"t1", Type::kFloat, "'C"},
    {"t2", Type::kFloat, "'C"},
    {"dt_1_2", Type::kFloat, "'C", Role::kValue, "dt"},
    {"t3", Type::kFloat, "'C"},
    {"thv", Type::kFloat, "'C", Role::kValue, "tхв"_w},
};

inline constexpr Column kPressures[] = {
    {"P1", Type::kFloat, Unit::Chosen(kPressureUnit)},
    {"P2", Type::kFloat, Unit::Chosen(kPressureUnit)},
};

// Volumes, masses and heats as the totals hold them; the periodic archives hold floats.
inline constexpr Column kQuantities[] = {
    {"V1", Type::kDouble, "м3"_w, Role::kAccumulated},
    {"V2", Type::kDouble, "м3"_w, Role::kAccumulated},
    {"V3", Type::kDouble, "м3"_w, Role::kAccumulated},
    {"M1", Type::kDouble, "т"_w, Role::kAccumulated},
    {"M2", Type::kDouble, "т"_w, Role::kAccumulated},
    {"M3", Type::kDouble, "т"_w, Role::kAccumulated},
    {"Q", Type::kDouble, Unit::Chosen(kHeatUnit), Role::kAccumulated, "Q"},
    {"Qgvs", Type::kDouble, Unit::Chosen(kHeatUnit), Role::kAccumulated, "Qгвс"_w},
};
inline constexpr auto kFloatQuantities = AsFloats(kQuantities);

// Both carry the caption of the first: intended.
inline constexpr Column kCodes[] = {
    {"NS", Type::kInt32, "Код НС"_w, Role::kValue, "НС"_w, "kns0"},
    {"DS", Type::kInt32, "Код ДС"_w, Role::kValue, "НС"_w, "kns0"},
};

// The entries of a log: when, and what in the instrument's characters.
constexpr std::array<Column, 2> LogColumns(const char* caption) {
  return {{kDate, {"ISM", Type::kChars, "код"_w, Role::kValue, caption, nullptr, kEntrySize}}};
}

}  // namespace columns
}  // namespace k7
