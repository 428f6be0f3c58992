#include "older/reads/fields.h"

#include <algorithm>
#include <cstring>

#include "common/scan.h"

namespace older {
namespace {

// Through 64 bits to 32: -1 becomes 4294967295, and what has no integer is 0.
std::uint32_t Truncate(float value) {
  constexpr float kLimit = 9223372036854775808.0F;  // 2 to the power 63
  if (!(value >= -kLimit && value < kLimit)) return 0;
  return static_cast<std::uint32_t>(static_cast<std::int64_t>(value));
}

std::uint32_t NumberInText(std::span<const std::uint8_t> characters) {
  char text[16] = {};
  std::memcpy(text, characters.data(), std::min(characters.size(), sizeof text - 1));
  return common::ScanUnsigned(text);
}

}  // namespace

std::uint32_t NumberIn(const Field& field, std::span<const std::uint8_t> record) {
  const auto bytes = record.subspan(field.offset, field.width);
  if (field.type == Type::kChars) return NumberInText(bytes);
  if (field.type == Type::kFloat) {
    float value = 0;
    std::memcpy(&value, bytes.data(), sizeof value);
    return Truncate(value);
  }
  std::uint32_t value = 0;
  std::memcpy(&value, bytes.data(), std::min(bytes.size(), sizeof value));
  return value;
}

}  // namespace older
