#include "host/cli/durations.h"

#include <fmt/format.h>

#include <charconv>
#include <string_view>

#include "host/reading/settings.h"

namespace host {
namespace {

using std::chrono::seconds;

struct Suffix {
  std::string_view text;
  seconds length;
};

constexpr Suffix kSuffixes[] = {{"", seconds(1)},
                                {"s", seconds(1)},
                                {"m", seconds(60)},
                                {"h", seconds(3600)},
                                {"d", seconds(86400)}};

// Below 0 when the text is no duration.
seconds LengthOf(std::string_view text) {
  unsigned number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc()) return seconds(-1);
  text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
  for (const Suffix& suffix : kSuffixes) {
    if (suffix.text == text) return number * suffix.length;
  }
  return seconds(-1);
}

// Takes two digits or one from the front of a text; below 0 when there are none, or too many.
long TakeNumber(std::string_view& text) {
  long number = -1;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  const auto length = static_cast<std::size_t>(result.ptr - text.data());
  text.remove_prefix(length);
  return length <= 2 ? number : -1;
}

}  // namespace

long RequireOffset(const std::string& text) {
  std::string_view rest = text;
  const bool behind = rest.starts_with('-');
  if (behind || rest.starts_with('+')) rest.remove_prefix(1);
  const long hours = TakeNumber(rest);
  const bool exact = rest.starts_with(':');
  if (exact) rest.remove_prefix(1);
  const long minutes = exact ? TakeNumber(rest) : 0;
  if (!rest.empty() || hours < 0 || hours > 23 || minutes < 0 || minutes > 59) {
    throw UsageError("--utc-offset " + text + ": it looks like +03:00");
  }
  const long offset = hours * 3600 + minutes * 60;
  return behind ? -offset : offset;
}

seconds RequireDuration(const char* option, const std::string& text, seconds least) {
  const seconds length = LengthOf(text);
  if (length < seconds(0)) {
    throw UsageError(fmt::format("{} {}: a time looks like 90s, 2m or 1h", option, text));
  }
  if (length < least || length > kMostTime) {
    throw UsageError(fmt::format("{} {}: it must be from {} s to {} d", option, text, least.count(),
                                 kMostTime.count() / 24));
  }
  return length;
}

}  // namespace host
