#include "older/models/catalogue.h"

#include <cstring>

#include "common/cp1251.h"
#include "common/scan.h"

namespace older {
namespace {

using namespace common::literals;

constexpr const Model* kModels[] = {&kModel521, &kModel522, &kModel523, &kModel721, &kModel521x};

// Through 64 bits to 32: -1 becomes 4294967295, and what has no integer is 0.
std::uint32_t Truncate(float value) {
  constexpr float kLimit = 9223372036854775808.0F;  // 2 to the power 63
  if (!(value >= -kLimit && value < kLimit)) return 0;
  return static_cast<std::uint32_t>(static_cast<std::int64_t>(value));
}

const Column* FindColumn(Columns columns, const char* name, std::size_t& offset) {
  offset = 0;
  for (const Column& column : columns) {
    if (std::strcmp(column.name, name) == 0) return &column;
    offset += column.width;
  }
  return nullptr;
}

std::uint32_t NumberInText(const std::uint8_t* characters, std::size_t width) {
  char text[16] = {};
  std::memcpy(text, characters, width < sizeof text ? width : sizeof text - 1);
  return common::ScanUnsigned(text);
}

}  // namespace

const Model* FindModel(TypeCode type) {
  for (const Model* model : kModels) {
    if (model->type == type) return model;
  }
  return nullptr;
}

ChosenUnits UnitsByCode(const TKSplImpl& reader, int system) {
  constexpr const char* kPressureUnits[] = {"кг/см2"_w, "МПа"_w, "бар"_w};
  constexpr const char* kHeatUnits[] = {"ГКал"_w, "ГДж"_w, "МВт"_w};
  const std::uint8_t code = reader.UnitsCode[system];
  if (code >= std::size(kPressureUnits)) return {};
  return {kPressureUnits[code], kHeatUnits[code]};
}

void KeepUnitsCode(TKSplImpl& reader, std::span<const std::uint8_t> database) {
  reader.UnitsCode[0] = reader.UnitsCode[1] = database[0];
}

std::size_t OffsetOf(Columns columns, const char* name) {
  std::size_t offset = 0;
  FindColumn(columns, name, offset);
  return offset;
}

std::uint32_t NumberIn(Columns columns, std::span<const std::uint8_t> record, const char* name) {
  std::size_t offset = 0;
  const Column* column = FindColumn(columns, name, offset);
  if (column == nullptr) return 0;
  if (column->type == Type::kChars) return NumberInText(&record[offset], column->width);
  if (column->type == Type::kFloat) {
    float value = 0;
    std::memcpy(&value, &record[offset], sizeof value);
    return Truncate(value);
  }
  std::uint32_t value = 0;
  std::memcpy(&value, &record[offset], column->width);
  return value;
}

}  // namespace older
