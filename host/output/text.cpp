#include "host/output/text.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/reading/clock_check.h"
#include "host/stream/cell.h"

namespace host {

std::string SectionName(tav::TitleKind kind, const std::string& section) {
  return fmt::format("{}{}{}", KindName(kind), section.empty() ? "" : " ", section);
}

std::string ClockText(const Title& title) {
  return title.time.month == 0 ? std::string() : DateText(title.time);
}

std::string SectionHeading(const Section& section) {
  const Title& title = section.title;
  const std::string clock = ClockText(title);
  return fmt::format("{}: {} {}, number {}{}{}", SectionName(title.kind, title.section),
                     title.model, title.version, title.number, clock.empty() ? "" : ", clock ",
                     clock);
}

std::vector<std::string> AccountLines(const SectionAccount& account, std::size_t most) {
  std::vector<std::string> lines;
  for (const std::string& line : {MissingText(account, most), NotHeldText(account, most)}) {
    if (!line.empty()) lines.push_back(line);
  }
  return lines;
}

std::string ClockWarning(const RunEnd& end) {
  if (!end.clock || !end.clock->beyond) return {};
  return ClockDifference(*end.clock);
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
