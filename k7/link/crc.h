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
// The register after a stretch also depends on what came before it, the more bytes ago the higher a
// power of x that is multiplied by. Dividing the register after n bytes by x^(8 n) takes that out
// (x has an inverse, for the polynomial's lowest coefficient is 1). A message followed by its own
// CRC adds nothing to the quotient, and nothing else does: the quotients before and behind a
// stretch are equal exactly when it ends with its own CRC.
class StreamCrc {
 public:
  void Add(std::uint8_t byte);
  // The quotient.
  std::uint16_t Value() const;

 private:
  std::uint16_t crc_ = 0;
  std::uint16_t divisor_ = 1;  // its inverse: x to the power of -8 n
};

}  // namespace k7
