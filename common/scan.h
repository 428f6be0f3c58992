// Reading numbers out of the instrument's texts. Leading blanks are skipped, a number ends where
// its digits end, and what does not fit 32 bits wraps, so that no text is out of range.
#pragma once

#include <cstdint>

namespace common {

class Scanner {
 public:
  // text is zero-terminated and outlives the scanner.
  explicit Scanner(const char* text) : next_(text) {}

  // A decimal integer with an optional sign; false leaves value as it is.
  bool Integer(std::uint32_t& value);
  // One character of any kind.
  bool Separator();

 private:
  const char* next_;
};

// The decimal number at the start of text, 0 when there is none.
std::uint32_t ScanUnsigned(const char* text);

// The year that an instrument's two digits mean. Others, four digits too, are added to the same
// centuries: intended.
constexpr std::uint16_t FullYear(std::uint32_t year) {
  return static_cast<std::uint16_t>(year >= 95 ? year + 1900 : year + 2000);
}

// The floating-point number at the start of text; the decimal sign is always the point. False
// leaves value as it is.
bool ScanDouble(const char* text, double& value);

}  // namespace common
