// Runs of columns that the K7 instruments share.
#pragma once

#include <array>

#include "host/fields/layout.h"

namespace host::k7 {

using tav::Role;
using tav::Type;

inline constexpr char kPressures[] = "кгс/см2|МПа|бар";

// The driver takes the text of the pressure unit with the number of the heat unit.
inline constexpr Truth kHeatAsSet = {.source = Source::kHeatSetting,
                                     .reason = "the driver tells the pressure unit of that number"};

inline constexpr Entry kState[] = {{"SP", Type::kByte, "код", "sp", "СП"}};

inline constexpr Entry kFlows[] = {
    {"G1", Type::kFloat, "м3/час", "g1"},
    {"G2", Type::kFloat, "м3/час", "g2"},
    {"G3", Type::kFloat, "м3/час", "g3"},
};
inline constexpr Entry kTemperatures[] = {
    {"t1", Type::kFloat, "'C", "t1"},
    {"t2", Type::kFloat, "'C", "t2"},
    {"dt_1_2", Type::kFloat, "'C", "dt", "dt"},
    {"t3", Type::kFloat, "'C", "t3"},
    {"thv", Type::kFloat, "'C", "t_cold", "tхв"},
};
inline constexpr Entry kTwoPressures[] = {
    {"P1", Type::kFloat, kPressures, "p1"},
    {"P2", Type::kFloat, kPressures, "p2"},
};
// Floats in the periodic archives.
inline constexpr Entry kAmounts[] = {
    {"V1", Type::kDouble, "м3", "v1"},
    {"V2", Type::kDouble, "м3", "v2"},
    {"V3", Type::kDouble, "м3", "v3"},
    {"M1", Type::kDouble, "т", "m1"},
    {"M2", Type::kDouble, "т", "m2"},
    {"M3", Type::kDouble, "т", "m3"},
    {"Q", Type::kDouble, kPressures, "q", nullptr, kHeatAsSet},
    {"Qgvs", Type::kDouble, kPressures, "q_hot_water", "Qгвс", kHeatAsSet},
};
// Both have the caption of the first: intended.
inline constexpr Entry kCodes[] = {
    {"NS", Type::kInt32, "Код НС", "ns", "НС"},
    {"DS", Type::kInt32, "Код ДС", "ds", "НС"},
};

inline constexpr Entry kChange[] = {{"ISM", Type::kChars, "код", "change", "Изменение"}};
inline constexpr Entry kEvent[] = {{"ISM", Type::kChars, "код", "event", "Событие"}};

inline constexpr ColumnRun kChangeLog[] = {{kRecordTime, Role::kKey}, {kChange}};
inline constexpr ColumnRun kEventLog[] = {{kRecordTime, Role::kKey}, {kEvent}};

// A parameter is the instrument's own text, whatever it holds, and no unit comes with it.
struct Parameter {
  const char* column;
  const char* base;
  const char* caption;
};

template <std::size_t N>
consteval std::array<Entry, N> Texts(const Parameter (&parameters)[N]) {
  std::array<Entry, N> entries{};
  for (std::size_t i = 0; i < N; ++i) {
    const Parameter& each = parameters[i];
    entries[i] = {each.column, Type::kChars, "код", each.base, each.caption};
  }
  return entries;
}

}  // namespace host::k7
