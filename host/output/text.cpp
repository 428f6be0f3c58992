#include "host/output/text.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/stream/cell.h"

namespace host {

std::string SectionHeading(const Section& section) {
  const Title& title = section.title;
  return fmt::format("{}{}{}: {} {}, number {}, clock {}", KindName(title.kind),
                     title.section.empty() ? "" : " ", title.section, title.model, title.version,
                     title.number, DateText(title.time));
}

std::string CountOf(std::size_t count, const char* what) {
  return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

std::size_t DisplayWidth(const std::string& utf8) {
  return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char character) {
    return (static_cast<unsigned char>(character) & 0xC0U) != 0x80U;
  }));
}

std::string PadRight(const std::string& text, std::size_t width) {
  return text + std::string(width - std::min(width, DisplayWidth(text)), ' ');
}

std::string PadLeft(const std::string& text, std::size_t width) {
  return std::string(width - std::min(width, DisplayWidth(text)), ' ') + text;
}

}  // namespace host
