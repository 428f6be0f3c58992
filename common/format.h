// Texts of a bounded length, put together without allocating.
#pragma once

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace common {

// A zero-terminated text on the stack; what does not fit is cut.
struct ShortText {
  char characters[96];

  operator const char*() const { return characters; }  // NOLINT: reads as the text it is
};

#if defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
inline ShortText
Format(const char* format, ...) {
  ShortText text;
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text.characters, sizeof text.characters, format, arguments);
  va_end(arguments);
  return text;
}

// Copies text into a field of the host object, cut to fit, always zero-terminated.
template <std::size_t N>
void SetText(char (&field)[N], const char* text) {
  const std::size_t length = std::min(std::strlen(text), N - 1);
  std::memcpy(field, text, length);
  field[length] = '\0';
}

}  // namespace common
