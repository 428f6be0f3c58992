// Columns that records of several models have in common.
#pragma once

#include "common/cp1251.h"
#include "older/models/units.h"
#include "older/reads/text_items.h"

namespace older {

using namespace common::literals;

// --- Of archive records ---

// The key of every record.
inline constexpr Column kDateColumn = {"DT", Type::kDateTime, "Дата:время"_w, Role::kKey};
inline constexpr Column kModeColumn = {"SP", Type::kByte, "Код Реж"_w};
// The code of an unusual situation.
inline constexpr Column kSituationColumn = {"NS",         Type::kInt32, "Код НС"_w,
                                            Role::kValue, "НС"_w,       "kns0"};
inline constexpr Column kPressures[] = {
    {"P1", Type::kFloat, kPressureUnit},
    {"P2", Type::kFloat, kPressureUnit},
};
inline constexpr Column kTemperatures[] = {
    {"t1", Type::kFloat, "'C"},
    {"t2", Type::kFloat, "'C"},
};
inline constexpr Column kVolumes[] = {
    {"V1", Type::kFloat, "м3"_w},
    {"V2", Type::kFloat, "м3"_w},
    {"V3", Type::kFloat, "м3"_w},
};
inline constexpr Column kMasses[] = {
    {"M1", Type::kFloat, "тонн"_w},
    {"M2", Type::kFloat, "тонн"_w},
    {"M3", Type::kFloat, "тонн"_w},
};
inline constexpr auto kVolumesAndMasses = Table(kVolumes, kMasses);
inline constexpr Column kHeatColumn = {"Q", Type::kFloat, kHeatUnit};
inline constexpr Column kTimeColumn = {"Tw", Type::kFloat, "Час"_w};

// --- Of current values ---

inline constexpr Column kFlows[] = {
    {"G1", Type::kFloat, "м3/час"_w},
    {"G2", Type::kFloat, "м3/час"_w},
    {"G3", Type::kFloat, "м3/час"_w},
};

// --- Of databases ---

consteval Column Characters(const char* name, std::uint8_t width, Unit unit,
                            const char* caption = nullptr) {
  return {name, Type::kChars, unit, Role::kValue, caption, nullptr, width};
}

// A date of a form; its unit tells the host which.
consteval Column DateItem(DateForm form, const char* name, Unit unit, const char* caption = nullptr,
                          const char* group = nullptr) {
  Column column = {name, Type::kDateTime, unit, Role::kValue, caption, group};
  column.form = static_cast<std::uint8_t>(form);
  return column;
}
consteval Column TimeOfDay(const char* name, const char* caption = nullptr,
                           const char* group = nullptr) {
  return DateItem(DateForm::kTimeOfDay, name, "h.m.s", caption, group);
}
consteval Column FullDate(const char* name, const char* caption = nullptr) {
  return DateItem(DateForm::kDate, name, "D.M.Y", caption);
}
consteval Column DayOfYear(const char* name) { return DateItem(DateForm::kDayOfYear, name, "D.M"); }

// Settings of the three flow channels of a heat system: pulse weight, lower, nominal and upper
// flow.
inline constexpr Column kFlowChannels[] = {
    {"C1", Type::kFloat, "имп"_w},    {"Gw1", Type::kFloat, "т/час"_w},
    {"Gn1", Type::kFloat, "т/час"_w}, {"Gk1", Type::kFloat, "т/час"_w},
    {"C2", Type::kFloat, "имп"_w},    {"Gw2", Type::kFloat, "т/час"_w},
    {"Gn2", Type::kFloat, "т/час"_w}, {"Gk2", Type::kFloat, "т/час"_w},
    {"C3", Type::kFloat, "имп"_w},    {"Gw3", Type::kFloat, "т/час"_w},
    {"Gn3", Type::kFloat, "т/час"_w}, {"Gk3", Type::kFloat, "т/час"_w},
};

}  // namespace older
