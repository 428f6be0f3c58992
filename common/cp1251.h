// Texts of the host interface in code page 1251, converted at compile time: the sources are UTF-8,
// whatever character set a compiler thinks of.
#pragma once

#include <array>
#include <cstddef>

#include "common/does_not_compile.h"

namespace common {

// A string literal as a template argument: its UTF-8 bytes with the terminator.
template <std::size_t N>
struct Utf8Literal {
  char bytes[N];

  consteval Utf8Literal(const char (&text)[N]) {  // NOLINT: converts implicitly on purpose
    for (std::size_t i = 0; i < N; ++i) bytes[i] = text[i];
  }
};

// The code page 1251 byte of a character; characters outside ASCII and the Russian alphabet do not
// compile.
consteval char ToCp1251(unsigned character) {
  if (character < 0x80) return static_cast<char>(character);
  if (character >= 0x410 && character <= 0x44F) return static_cast<char>(character - 0x410 + 0xC0);
  if (character == 0x401) return static_cast<char>(0xA8);
  if (character == 0x451) return static_cast<char>(0xB8);
  DoesNotCompile("this character is not in the Russian alphabet");
}

// Zero-padded to the literal's length, which is never shorter than the result.
template <std::size_t N>
consteval std::array<char, N> ToCp1251(const Utf8Literal<N>& text) {
  std::array<char, N> result{};
  std::size_t length = 0;
  for (std::size_t i = 0; i + 1 < N;) {
    const auto lead = static_cast<unsigned char>(text.bytes[i++]);
    if (lead < 0x80) {
      result[length++] = ToCp1251(static_cast<unsigned>(lead));
    } else {
      const auto next = static_cast<unsigned char>(text.bytes[i++]);
      result[length++] = ToCp1251(((lead & 0x1FU) << 6) | (next & 0x3FU));
    }
  }
  return result;
}

template <Utf8Literal Text>
inline constexpr auto kCp1251 = ToCp1251(Text);

inline namespace literals {

// "Код НС"_w: the text in code page 1251, zero-terminated, of static storage.
template <Utf8Literal Text>
consteval const char* operator""_w() {
  return kCp1251<Text>.data();
}

}  // namespace literals
}  // namespace common
