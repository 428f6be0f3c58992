#include "host/output/frame_list.h"

#include <fmt/format.h>

#include "host/output/folded_table.h"
#include "host/output/json_writer.h"

namespace host {
namespace {

using frames::Direction;
using frames::Frame;
using frames::Label;

constexpr std::size_t kAllBytes = static_cast<std::size_t>(-1);
constexpr std::size_t kShownBytes = 8;

const char* SignOf(Direction direction) {
  switch (direction) {
    case Direction::kSent:
      return "> ";
    case Direction::kReceived:
      return "< ";
    case Direction::kUnknown:
      break;
  }
  return "  ";
}

std::string DirectionJson(Direction direction) {
  if (direction == Direction::kUnknown) return "null";
  return JsonText(direction == Direction::kSent ? "sent" : "received");
}

// Of a label, in the bytes of its frame.
std::size_t OffsetIn(const Frame& frame, const Label& label) { return label.first - frame.First(); }

std::string LabelJson(const Frame& frame, const Label& label, ByteView bytes) {
  const std::size_t at = OffsetIn(frame, label);
  const JsonMember members[] = {
      {"at", std::to_string(at)},
      {"count", std::to_string(label.count)},
      {"bytes", JsonText(BytesText(bytes.subspan(at, label.count), kAllBytes))},
      {"name", JsonText(label.name)},
      {"meaning", JsonTextOrNull(label.meaning)}};
  return JsonObject(members);
}

std::string LabelsJson(const Frame& frame, ByteView bytes) {
  std::string text;
  JsonWriter writer(text, JsonWriter::Layout::kOneLine);
  writer.Open('[');
  for (const Label& label : frame.labels) writer.Value(LabelJson(frame, label, bytes));
  writer.Close(']');
  return text;
}

}  // namespace

std::string BytesText(ByteView bytes, std::size_t most) {
  const ByteView shown = bytes.first(std::min(most, bytes.size()));
  std::string text;
  for (const unsigned char byte : shown) {
    text += fmt::format("{}{:02X}", text.empty() ? "" : " ", byte);
  }
  return shown.size() < bytes.size() ? text + " ..." : text;
}

std::string FrameLine(const Frame& frame) {
  const std::string name = NameOf(frame.kind);
  const bool told = frame.kind == frames::FrameClass::kRequest || frame.summary.starts_with(name) ||
                    frame.kind == frames::FrameClass::kWakeUp;
  return SignOf(frame.direction) + (told ? "" : '[' + name + "] ") + frame.summary;
}

std::string FrameText(const Frame& frame, ByteView bytes) {
  std::vector<TextLine> lines;
  for (const Label& label : frame.labels) {
    const std::size_t at = OffsetIn(frame, label);
    lines.push_back({fmt::format("{:>4}", at),
                     BytesText(bytes.subspan(at, label.count), kShownBytes), label.name,
                     label.meaning});
  }
  return FrameLine(frame) + '\n' + ListText(lines);
}

std::string FrameJson(const Frame& frame, ByteView bytes, std::optional<long long> ms) {
  std::string text;
  JsonWriter writer(text, JsonWriter::Layout::kOneLine);
  writer.Open('{');
  if (ms) writer.Member(JsonText("t"), std::to_string(*ms));
  writer.Member(JsonText("direction"), DirectionJson(frame.direction));
  writer.Member(JsonText("class"), JsonText(NameOf(frame.kind)));
  writer.Member(JsonText("summary"), JsonText(frame.summary));
  writer.Member(JsonText("bytes"), JsonText(BytesText(bytes, kAllBytes)));
  writer.Member(JsonText("labels"), LabelsJson(frame, bytes));
  writer.Close('}');
  return text;
}

}  // namespace host
