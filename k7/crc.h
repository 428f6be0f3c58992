// The two check sums of the K7 frames.
#pragma once

#include <cstdint>
#include <span>

namespace k7 {

// Long frames: CRC-16, polynomial 0x1021, starting with 0, most significant bit first.
std::uint16_t Crc16(std::span<const std::uint8_t> bytes);

// Short frames: the complement of the sum.
std::uint8_t Checksum(std::span<const std::uint8_t> bytes);

// Tells whether any stretch of a byte stream ends with its own CRC-16, at no cost per stretch.
//
// The register after a stretch depends on where the stretch starts, so a plain CRC has to be taken
// again from each start. This one divides every byte's share by x^8 once for each byte before it
// (x has an inverse, for the polynomial's lowest coefficient is 1). The shares then no longer
// depend on the start: a stretch leaves remainder 0, which is what a message followed by its own
// CRC does, exactly when the register is the same before and after it.
class StreamCrc {
 public:
  void Add(std::uint8_t byte);
  std::uint16_t Value() const { return value_; }

 private:
  std::uint16_t value_ = 0;
  std::uint16_t weight_ = 0x8000;  // of the next byte's top bit, a power of x
};

}  // namespace k7
