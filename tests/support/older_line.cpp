#include "tests/support/older_line.h"

#include <bit>

namespace support::older {
namespace {

std::uint8_t Byte(std::uint32_t value) { return static_cast<std::uint8_t>(value & 0xFF); }

Bytes Framed(const Bytes& content) {
  std::uint32_t sum = 0;
  for (const std::uint8_t byte : content) sum += byte;
  return Hex("10") + content + Bytes{Byte(~sum), 0x16};
}

}  // namespace

Bytes Reply(char function, const Bytes& data) {
  return Framed(Bytes{1, static_cast<std::uint8_t>(function)} + data);
}

Bytes ErrorReply(int code) { return Framed({1, '!', static_cast<std::uint8_t>(code)}); }

Bytes Identification(int family, int model, int version) {
  return Reply('?',
               {Byte(static_cast<std::uint32_t>(family)), Byte(static_cast<std::uint32_t>(model)),
                Byte(static_cast<std::uint32_t>(version))});
}

// Sign and exponent change places with what an IEEE single has there.
Bytes Float(float value) {
  const auto bits = std::bit_cast<std::uint32_t>(value);
  const std::uint32_t sign = bits >> 31;
  const std::uint32_t exponent = (bits >> 23) & 0xFF;
  const std::uint32_t high = (bits >> 16) & 0x7F;
  return {Byte(bits), Byte(bits >> 8), Byte(high | (sign << 7)), Byte(exponent)};
}

bool IsRequest(const Bytes& written, char function) {
  return written.size() == 9 && written[2] == static_cast<std::uint8_t>(function);
}

}  // namespace support::older
