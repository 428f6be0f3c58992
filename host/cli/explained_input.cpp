#include "host/cli/explained_input.h"

#include <fmt/format.h>

#include <cctype>
#include <charconv>
#include <fstream>
#include <string_view>

#include "host/reading/settings.h"
#include "host/system/files.h"

namespace host {
namespace {

using frames::Direction;

bool IsBlank(char character) { return character == ' ' || character == '\t' || character == '\r'; }

// Nothing when the text has anything but pairs of hex digits.
std::optional<Bytes> ParseHex(std::string_view text) {
  Bytes bytes;
  while (!text.empty()) {
    if (IsBlank(text.front())) {
      text.remove_prefix(1);
      continue;
    }
    unsigned char byte = 0;
    if (text.size() < 2) return std::nullopt;
    const char* const end = text.data() + 2;
    if (std::from_chars(text.data(), end, byte, 16).ptr != end) return std::nullopt;
    bytes.push_back(byte);
    text.remove_prefix(2);
  }
  return bytes;
}

Direction TakeDirection(std::string_view& text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  if (text.empty() || (text.front() != '>' && text.front() != '<')) return Direction::kUnknown;
  const Direction direction = text.front() == '>' ? Direction::kSent : Direction::kReceived;
  text.remove_prefix(1);
  return direction;
}

ExplainedInput LoadHexLines(std::istream& file, const std::string& name) {
  ExplainedInput input;
  std::size_t number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    std::string_view text = std::string_view(line).substr(0, line.find('#'));
    const Direction direction = TakeDirection(text);
    auto bytes = ParseHex(text);
    if (!bytes) {
      throw std::runtime_error(fmt::format("{}: line {} is no hex", name, number));
    }
    if (!bytes->empty()) input.lines.push_back({std::move(*bytes), direction});
  }
  return input;
}

ExplainedInput LoadFile(const std::string& name) {
  std::ifstream file(PathOf(name), std::ios::binary);
  if (!file) throw FileError("read", PathOf(name));
  if (file.peek() != '{') return LoadHexLines(file, name);
  return {{}, LoadTrace(file, name)};
}

bool IsFile(const std::string& name) {
  std::error_code none;
  return std::filesystem::is_regular_file(PathOf(name), none);
}

}  // namespace

ExplainedInput LoadExplainedInput(const std::vector<std::string>& words) {
  if (words.size() == 1 && IsFile(words.front())) return LoadFile(words.front());
  std::string text;
  for (const std::string& word : words) text += word + ' ';
  auto bytes = ParseHex(text);
  if (!bytes) {
    throw UsageError(fmt::format("explain {}: neither bytes in hex nor a file", words.front()));
  }
  ExplainedInput input;
  input.lines.push_back({std::move(*bytes), Direction::kUnknown});
  return input;
}

}  // namespace host
