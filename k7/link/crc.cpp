#include "k7/link/crc.h"

#include <array>

namespace k7 {
namespace {

constexpr unsigned kPolynomial = 0x11021;

constexpr std::uint16_t TimesX(unsigned value) {
  const unsigned shifted = value << 1;
  return static_cast<std::uint16_t>((shifted & 0x10000U) != 0 ? shifted ^ kPolynomial : shifted);
}

constexpr std::uint16_t DividedByX(unsigned value) {
  return static_cast<std::uint16_t>(((value & 1U) != 0 ? value ^ kPolynomial : value) >> 1);
}

// What eight steps make of each byte: of the high one when multiplying, of the low one when
// dividing.
using Table = std::array<std::uint16_t, 256>;

constexpr Table EightSteps(std::uint16_t (*step)(unsigned), unsigned shift) {
  Table table{};
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    auto value = static_cast<std::uint16_t>(byte << shift);
    for (int i = 0; i < 8; ++i) value = step(value);
    table[byte] = value;
  }
  return table;
}

constexpr Table kTimes = EightSteps(TimesX, 8);
constexpr Table kDivided = EightSteps(DividedByX, 0);

std::uint16_t Next(std::uint16_t crc, std::uint8_t byte) {
  return static_cast<std::uint16_t>((unsigned{crc} << 8) ^ kTimes[(crc >> 8) ^ byte]);
}

std::uint16_t Product(std::uint16_t left, std::uint16_t right) {
  std::uint16_t product = 0;
  for (int bit = 15; bit >= 0; --bit) {
    product = TimesX(product);
    if (((left >> bit) & 1) != 0) product = static_cast<std::uint16_t>(product ^ right);
  }
  return product;
}

}  // namespace

std::uint16_t Crc16(std::span<const std::uint8_t> bytes) {
  std::uint16_t crc = 0;
  for (const std::uint8_t byte : bytes) crc = Next(crc, byte);
  return crc;
}

std::uint8_t Checksum(std::span<const std::uint8_t> bytes) {
  unsigned sum = 0;
  for (const std::uint8_t byte : bytes) sum += byte;
  return static_cast<std::uint8_t>(sum ^ 0xFFU);
}

void StreamCrc::Add(std::uint8_t byte) {
  crc_ = Next(crc_, byte);
  divisor_ = static_cast<std::uint16_t>((divisor_ >> 8) ^ kDivided[divisor_ & 0xFF]);
}

std::uint16_t StreamCrc::Value() const { return Product(crc_, divisor_); }

}  // namespace k7
