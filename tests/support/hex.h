// Bytes as the line carries them, written in hex.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace support {

using Bytes = std::vector<std::uint8_t>;

// "10 01 3F": pairs of hex digits, blanks between them. Throws std::invalid_argument on others.
Bytes Hex(std::string_view text);
// The reverse, for messages: "10 01 3F".
std::string ToHex(const Bytes& bytes);

Bytes operator+(Bytes left, const Bytes& right);

}  // namespace support
