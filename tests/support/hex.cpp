#include "tests/support/hex.h"

#include <charconv>
#include <stdexcept>

namespace support {

Bytes Hex(std::string_view text) {
  Bytes bytes;
  while (!text.empty()) {
    if (text.front() == ' ') {
      text.remove_prefix(1);
      continue;
    }
    std::uint8_t byte = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + 2, byte, 16);
    if (text.size() < 2 || error != std::errc{} || end != text.data() + 2) {
      throw std::invalid_argument("not hex: " + std::string(text));
    }
    bytes.push_back(byte);
    text.remove_prefix(2);
  }
  return bytes;
}

std::string ToHex(const Bytes& bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const std::uint8_t byte : bytes) {
    if (!text.empty()) text += ' ';
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

Bytes operator+(Bytes left, const Bytes& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

}  // namespace support
