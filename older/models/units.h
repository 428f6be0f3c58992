// Units of pressure and heat that a code in the instrument's database chooses.
#pragma once

#include "older/session/reader_state.h"

namespace older {

inline constexpr std::uint8_t kPressure = 0;
inline constexpr std::uint8_t kHeat = 1;
inline constexpr Unit kPressureUnit = Unit::Chosen(kPressure);
inline constexpr Unit kHeatUnit = Unit::Chosen(kHeat);

// Sets UnitsCode from the first byte of the instrument's database, EI; that of heat system 2 stays
// as it is: intended.
void KeepUnitsCode(TKSplImpl& reader, std::span<const std::uint8_t> database);

// The units by UnitsCode: both null for a code that names none.
ChosenUnits UnitsByCode(const TKSplImpl& reader, int system);

}  // namespace older
