#include "host/output/json_writer.h"

#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <utility>

namespace host {
namespace {

using Json = nlohmann::json;

std::string Number(double value) { return std::isfinite(value) ? Json(value).dump() : "null"; }

struct ValueOf {
  std::string operator()(std::monostate) const { return "null"; }
  std::string operator()(std::uint32_t value) const { return std::to_string(value); }
  // As a double of the same digits: 0.1 and not 0.10000000149011612.
  std::string operator()(float value) const {
    if (!std::isfinite(value)) return "null";
    const std::string text = CellText(value);
    double wide = 0;
    std::from_chars(text.data(), text.data() + text.size(), wide);
    return Number(wide);
  }
  std::string operator()(double value) const { return Number(value); }
  std::string operator()(const TAVDT& value) const { return '"' + DateText(value) + '"'; }
  std::string operator()(const std::string& value) const { return JsonText(value); }
};

}  // namespace

std::string JsonText(std::string_view text) {
  return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string JsonValue(const Cell& cell) { return std::visit(ValueOf{}, cell); }

std::string JsonTextOrNull(std::string_view text) { return text.empty() ? "null" : JsonText(text); }

std::string JsonObject(std::span<const JsonMember> members) {
  std::string text;
  JsonWriter writer(text, JsonWriter::Layout::kOneLine);
  writer.Open('{');
  for (const auto& [key, json] : members) writer.Member(JsonText(key), json);
  writer.Close('}');
  return text;
}

JsonWriter& JsonWriter::Open(char bracket) {
  Separate();
  out_ += bracket;
  ++depth_;
  first_ = true;
  return *this;
}

JsonWriter& JsonWriter::Close(char bracket) {
  --depth_;
  if (!first_) BreakLine();
  out_ += bracket;
  first_ = false;
  return *this;
}

JsonWriter& JsonWriter::Key(std::string_view text) {
  Separate();
  out_ += text;
  out_ += layout_ == Layout::kOneLine ? ":" : ": ";
  afterKey_ = true;
  return *this;
}

JsonWriter& JsonWriter::Value(std::string_view json) {
  Separate();
  out_ += json;
  return *this;
}

JsonWriter& JsonWriter::Member(std::string_view key, std::string_view json) {
  return Key(key).Value(json);
}

void JsonWriter::Separate() {
  if (std::exchange(afterKey_, false)) return;
  if (!std::exchange(first_, false)) out_ += ',';
  if (depth_ > 0) BreakLine();
}

void JsonWriter::BreakLine() {
  if (layout_ == Layout::kOneLine) return;
  out_ += '\n';
  out_.append(depth_, ' ');
}

}  // namespace host
