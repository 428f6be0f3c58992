#include "older/models/units.h"

#include "common/cp1251.h"

namespace older {

using namespace common::literals;

void KeepUnitsCode(TKSplImpl& reader, std::span<const std::uint8_t> database) {
  reader.UnitsCode[0] = reader.UnitsCode[1] = database[0];
}

ChosenUnits UnitsByCode(const TKSplImpl& reader, int system) {
  constexpr const char* kPressureUnits[] = {"кг/см2"_w, "МПа"_w, "бар"_w};
  constexpr const char* kHeatUnits[] = {"ГКал"_w, "ГДж"_w, "МВт"_w};
  const std::uint8_t code = reader.UnitsCode[system];
  if (code >= std::size(kPressureUnits)) return {};
  return {kPressureUnits[code], kHeatUnits[code]};
}

}  // namespace older
