// Values in an instrument's memory: little-endian numbers, floats, texts in code page 866.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace simulator::older {

using Bytes = std::vector<std::uint8_t>;

// The four bytes of an instrument float: 23 bits of mantissa, the sign in bit 7 of byte 2, the
// whole exponent in byte 3. The value is rounded to the nearest; what is too small becomes 0, what
// is too large the largest.
void PutFloat(Bytes& bytes, double value);
// The lowest `width` bytes of a number, the lowest first.
void PutInteger(Bytes& bytes, std::uint32_t value, std::size_t width);
// A text in UTF-8, as code page 866, cut or padded to the width.
void PutText(Bytes& bytes, std::string_view utf8, std::size_t width, char padding);

}  // namespace simulator::older
