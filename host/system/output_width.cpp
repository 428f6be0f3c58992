#include "host/system/output_width.h"

#include <charconv>
#include <cstdlib>
#include <string_view>

namespace host {
namespace {

constexpr std::size_t kUsual = 100;
// In fewer not even a date and a value stand beside each other.
constexpr std::size_t kLeast = 40;

}  // namespace

std::size_t OutputWidth() {
  const char* set = std::getenv("COLUMNS");
  const std::string_view text = set == nullptr ? "" : set;
  std::size_t width = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), width);
  if (result.ec != std::errc() || width == 0) width = OutputTerminalWidth();
  if (width == 0) return kUsual;
  return width < kLeast ? kLeast : width;
}

}  // namespace host
