#include "host/cli/number_list.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "host/reading/settings.h"

namespace host {
namespace {

// "7" and "7-9"; false when it is neither.
bool ParseRange(const std::string& text, int most, int& first, int& last) {
  const std::size_t dash = text.find('-');
  if (!CLI::detail::lexical_cast(text.substr(0, dash), first)) return false;
  last = first;
  const bool good =
      dash == std::string::npos || CLI::detail::lexical_cast(text.substr(dash + 1), last);
  return good && first >= 0 && first <= last && last <= most;
}

}  // namespace

std::vector<int> RequireNumbers(const std::string& option, const std::string& text, int most) {
  std::vector<int> numbers;
  std::vector<bool> named(static_cast<std::size_t>(most) + 1);
  for (const std::string& part : CLI::detail::split(text, ',')) {
    int first = 0;
    int last = 0;
    if (!ParseRange(part, most, first, last)) {
      throw UsageError(
          fmt::format("{} {}: numbers and ranges from 0 to {}, as 1-8,12", option, text, most));
    }
    for (int number = first; number <= last; ++number) {
      if (!named[static_cast<std::size_t>(number)]) numbers.push_back(number);
      named[static_cast<std::size_t>(number)] = true;
    }
  }
  return numbers;
}

}  // namespace host
