#include "common/scan.h"

#include <charconv>
#include <cstring>

namespace common {
namespace {

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

const char* SkipBlanks(const char* text) {
  while (IsBlank(*text)) ++text;
  return text;
}

}  // namespace

bool Scanner::Integer(std::uint32_t& value) {
  const char* digit = SkipBlanks(next_);
  const bool negative = *digit == '-';
  if (*digit == '-' || *digit == '+') ++digit;
  if (!IsDigit(*digit)) return false;
  std::uint32_t magnitude = 0;
  for (; IsDigit(*digit); ++digit) {
    magnitude = magnitude * 10 + static_cast<std::uint32_t>(*digit - '0');
  }
  value = negative ? 0U - magnitude : magnitude;
  next_ = digit;
  return true;
}

bool Scanner::Separator() {
  if (*next_ == '\0') return false;
  ++next_;
  return true;
}

std::uint32_t ScanUnsigned(const char* text) {
  std::uint32_t value = 0;
  Scanner(text).Integer(value);
  return value;
}

// Not through the C library: its decimal sign follows the locale that the host has set.
bool ScanDouble(const char* text, double& value) {
  text = SkipBlanks(text);
  if (*text == '+' && text[1] != '-') ++text;
  double parsed = 0.0;
  const auto [end, error] = std::from_chars(text, text + std::strlen(text), parsed);
  if (error != std::errc{}) return false;
  value = parsed;
  return true;
}

}  // namespace common
