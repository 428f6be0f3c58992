#include "older/models/model_721.h"

#include <array>
#include <cstring>

namespace older {
namespace {

consteval auto UnitFields() {
  std::array<Field, std::size(kUnitColumns721)> fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    fields[i] = FieldOf(kBdLayout721, kUnitColumns721[i]);
  }
  return fields;
}
constexpr auto kUnitFields = UnitFields();

}  // namespace

void KeepUnitTexts721(TKSplImpl& reader, std::span<const std::uint8_t> database) {
  for (std::size_t i = 0; i < kUnitFields.size(); ++i) {
    UnitText& text = reader.unitTexts[i];
    text.fill('\0');
    std::memcpy(text.data(), &database[kUnitFields[i].offset], text.size() - 1);
  }
}

ChosenUnits Units721(const TKSplImpl& reader, int /*system*/) {
  ChosenUnits units{};
  for (std::size_t i = 0; i < kUnitFields.size(); ++i) units[i] = reader.unitTexts[i].data();
  return units;
}

}  // namespace older
