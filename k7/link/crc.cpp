#include "k7/link/crc.h"

#include <array>

namespace k7 {
namespace {

constexpr unsigned kPolynomial = 0x1021;

// What eight steps make of each byte in the register's upper half.
constexpr auto kSteps = [] {
  std::array<std::uint16_t, 256> table{};
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    unsigned crc = byte << 8;
    for (int i = 0; i < 8; ++i) crc = (crc << 1) ^ ((crc & 0x8000U) != 0 ? kPolynomial : 0);
    table[byte] = static_cast<std::uint16_t>(crc);
  }
  return table;
}();

}  // namespace

std::uint16_t Crc16(std::span<const std::uint8_t> bytes) {
  std::uint16_t crc = 0;
  for (const std::uint8_t byte : bytes) {
    crc = static_cast<std::uint16_t>((unsigned{crc} << 8) ^ kSteps[(crc >> 8) ^ byte]);
  }
  return crc;
}

std::uint8_t Checksum(std::span<const std::uint8_t> bytes) {
  unsigned sum = 0;
  for (const std::uint8_t byte : bytes) sum += byte;
  return static_cast<std::uint8_t>(sum ^ 0xFFU);
}

}  // namespace k7
