// Columns that records of several models have in common.
#pragma once

#include "common/cp1251.h"
#include "older/models/model.h"

namespace older {

using namespace common::literals;

// Chosen by the settings of the instrument.
inline constexpr Unit kPressureUnit = Unit::Chosen(kPressure);
inline constexpr Unit kHeatUnit = Unit::Chosen(kHeat);

// The key of every archive record.
inline constexpr Column kDateColumn = {"DT", Type::kDateTime, "Дата:время"_w, Role::kKey};

// The code of an unusual situation.
inline constexpr Column kSituationColumn = {"NS",         Type::kInt32, "Код НС"_w,
                                            Role::kValue, "НС"_w,       "kns0"};

consteval Column Characters(const char* name, std::uint8_t width, Unit unit,
                            const char* caption = nullptr) {
  return {name, Type::kChars, unit, Role::kValue, caption, nullptr, width};
}

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
