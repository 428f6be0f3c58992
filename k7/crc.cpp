#include "k7/crc.h"

namespace k7 {
namespace {

constexpr unsigned kPolynomial = 0x11021;

std::uint16_t TimesX(unsigned value) {
  const unsigned shifted = value << 1;
  return static_cast<std::uint16_t>((shifted & 0x10000U) != 0 ? shifted ^ kPolynomial : shifted);
}

std::uint16_t DividedByX(unsigned value) {
  return static_cast<std::uint16_t>((value ^ (kPolynomial & (0U - (value & 1U)))) >> 1);
}

}  // namespace

std::uint16_t Crc16(std::span<const std::uint8_t> bytes) {
  std::uint16_t crc = 0;
  for (const std::uint8_t byte : bytes) {
    crc = static_cast<std::uint16_t>(crc ^ (unsigned{byte} << 8));
    for (int bit = 0; bit < 8; ++bit) crc = TimesX(crc);
  }
  return crc;
}

std::uint8_t Checksum(std::span<const std::uint8_t> bytes) {
  unsigned sum = 0;
  for (const std::uint8_t byte : bytes) sum += byte;
  return static_cast<std::uint8_t>(sum ^ 0xFFU);
}

void StreamCrc::Add(std::uint8_t byte) {
  for (unsigned mask = 0x80; mask != 0; mask >>= 1) {
    if ((byte & mask) != 0) value_ = static_cast<std::uint16_t>(value_ ^ weight_);
    weight_ = DividedByX(weight_);
  }
}

}  // namespace k7
