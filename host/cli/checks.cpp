#include "host/cli/checks.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <charconv>

namespace host {

CLI::Validator WholeNumber(long long least, long long most) {
  const std::string range = fmt::format("{} to {}", least, most);
  const auto objection = [least, most, range](std::string& text) -> std::string {
    long long number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    const bool good = result.ec == std::errc() && result.ptr == end;
    if (good && number >= least && number <= most) return {};
    return fmt::format("{} is not a whole number from {}", text, range);
  };
  return {objection, range};
}

CLI::Validator OneOf(const std::vector<std::string>& choices) {
  const auto objection = [choices](std::string& text) -> std::string {
    const std::string lower = CLI::detail::to_lower(text);
    for (const std::string& choice : choices) {
      if (choice != lower) continue;
      text = choice;
      return {};
    }
    return fmt::format("{} is none of {}", text, fmt::join(choices, ", "));
  };
  return {objection, fmt::format("{}", fmt::join(choices, "|"))};
}

}  // namespace host
