#include "older/models/model_721.h"

#include <cstring>
#include <utility>

namespace older {
namespace {

constexpr auto kUnitFields = []<std::size_t... I>(std::index_sequence<I...>) {
  return std::array{FieldOf(kBdLayout721, kUnitColumns721[I])...};
}
(std::make_index_sequence<std::size(kUnitColumns721)>());

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
