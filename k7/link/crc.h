// The two check sums of the K7 frames.
#pragma once

#include <cstdint>
#include <span>

namespace k7 {

// Long frames: CRC-16, polynomial 0x1021, starting with 0, most significant bit first. Bytes with
// their own CRC behind them, its high byte first, give 0.
std::uint16_t Crc16(std::span<const std::uint8_t> bytes);

// Short frames: the complement of the sum.
std::uint8_t Checksum(std::span<const std::uint8_t> bytes);

}  // namespace k7
