#include "simulator/older/encoding.h"

#include <cmath>

namespace simulator::older {
namespace {

constexpr int kBias = 127;
constexpr std::uint32_t kImplicitBit = 1u << 23;

// A code point as code page 866 has it; Russian letters and ASCII only.
std::uint8_t ToPage866(std::uint32_t point) {
  if (point < 0x80) return static_cast<std::uint8_t>(point);
  if (point >= 0x410 && point <= 0x43F) return static_cast<std::uint8_t>(point - 0x410 + 0x80);
  if (point >= 0x440 && point <= 0x44F) return static_cast<std::uint8_t>(point - 0x440 + 0xE0);
  if (point == 0x401) return 0xF0;
  if (point == 0x451) return 0xF1;
  return '?';
}

}  // namespace

void PutFloat(Bytes& bytes, double value) {
  int exponent = 0;
  const double fraction = std::frexp(std::fabs(value), &exponent);  // 0.5 to 1
  auto mantissa = static_cast<std::uint32_t>(std::llrint(std::ldexp(fraction, 24)));
  if (mantissa == 2 * kImplicitBit) {
    mantissa = kImplicitBit;
    ++exponent;
  }
  int biased = exponent - 1 + kBias;
  if (mantissa == 0 || biased < 1) {
    biased = 0;
    mantissa = 0;
  } else if (biased > 254) {
    biased = 254;
    mantissa = 2 * kImplicitBit - 1;
  }
  const std::uint32_t sign = value < 0 ? 0x80 : 0;
  bytes.push_back(static_cast<std::uint8_t>(mantissa));
  bytes.push_back(static_cast<std::uint8_t>(mantissa >> 8));
  bytes.push_back(static_cast<std::uint8_t>(((mantissa >> 16) & 0x7F) | sign));
  bytes.push_back(static_cast<std::uint8_t>(biased));
}

void PutInteger(Bytes& bytes, std::uint32_t value, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i) {
    bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
  }
}

void PutText(Bytes& bytes, std::string_view utf8, std::size_t width, char padding) {
  const std::size_t end = bytes.size() + width;
  for (std::size_t i = 0; i < utf8.size() && bytes.size() < end; ++i) {
    std::uint32_t point = static_cast<std::uint8_t>(utf8[i]);
    if (point >= 0xC0 && i + 1 < utf8.size()) {  // the texts have no more than two bytes a letter
      point = ((point & 0x1F) << 6) | (static_cast<std::uint8_t>(utf8[++i]) & 0x3F);
    }
    bytes.push_back(ToPage866(point));
  }
  bytes.resize(end, static_cast<std::uint8_t>(padding));
}

}  // namespace simulator::older
