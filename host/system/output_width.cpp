#include "host/system/output_width.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string_view>

namespace host {
namespace {

constexpr std::size_t kUsual = 100;
// In fewer not even a date and a value stand beside each other.
constexpr std::size_t kLeast = 40;

// 0: it does not say.
std::size_t WantedWidth() {
  const char* set = std::getenv("COLUMNS");
  const std::string_view text = set == nullptr ? "" : set;
  std::size_t width = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), width);
  return result.ec == std::errc() ? width : 0;
}

std::size_t WidthOr(std::size_t terminal) {
  std::size_t width = WantedWidth();
  if (width == 0) width = terminal;
  return width == 0 ? kUsual : width;
}

}  // namespace

std::size_t OutputWidth() { return std::max(WidthOr(OutputTerminalWidth()), kLeast); }

bool OutputShowsUtf8() { return OutputTerminalWidth() > 0 && TerminalTakesUtf8(); }

// What stands there can be cut.
std::size_t ErrorWidth() { return WidthOr(ErrorTerminalWidth()); }

}  // namespace host
