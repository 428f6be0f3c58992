// Writes a JSON text piece by piece, so that its cost is that of the text.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "host/stream/cell.h"

namespace host {

// In quotes. What is no UTF-8, as a device's error text in the system's own code page, is replaced.
std::string JsonText(std::string_view text);

// Single-precision values have their own shortest digits; what is no number is null.
std::string JsonValue(const Cell& cell);

// The same; null when it is empty.
std::string JsonTextOrNull(std::string_view text);

// A name, and its value as JSON.
using JsonMember = std::pair<const char*, std::string>;
// Of these members, on one line.
std::string JsonObject(std::span<const JsonMember> members);

class JsonWriter {
 public:
  enum class Layout { kOneLine, kIndented };

  // out must outlive the writer. depth: levels that are open around what is written.
  JsonWriter(std::string& out, Layout layout, std::size_t depth = 0)
      : out_(out), layout_(layout), depth_(depth) {}

  // '{' or '[', and their ends.
  JsonWriter& Open(char bracket);
  JsonWriter& Close(char bracket);
  // text: as JsonText gives it.
  JsonWriter& Key(std::string_view text);
  // json: a whole value.
  JsonWriter& Value(std::string_view json);
  JsonWriter& Member(std::string_view key, std::string_view json);

 private:
  void Separate();
  void BreakLine();

  std::string& out_;
  Layout layout_;
  std::size_t depth_;
  bool first_ = true;      // in the level that is open
  bool afterKey_ = false;  // the value belongs to it
};

}  // namespace host
