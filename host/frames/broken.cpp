#include "host/frames/broken.h"

#include <fmt/format.h>

#include "host/frames/find.h"
#include "host/frames/k7_frames.h"
#include "host/frames/older_frames.h"
#include "host/frames/values.h"

namespace host::frames {
namespace {

const char* NameOf(Form form) {
  switch (form) {
    case Form::kOlderRequest:
      return "a request of the older protocol";
    case Form::kOlderError:
      return "an error reply of the older protocol";
    case Form::kOlderReply:
      return "a reply of the older protocol";
    case Form::kK7Long:
      return "a K7 frame";
    default:
      return "a frame";
  }
}

bool MayStart(ByteView bytes, std::size_t at) {
  return bytes[at] == older::kStartByte && bytes.size() - at > 1;
}

// Where the next frame may start; the end: nowhere.
std::size_t NextStart(const Context& context, ByteView bytes, Direction direction) {
  for (std::size_t at = 1; at < bytes.size(); ++at) {
    if (!MayStart(bytes, at)) continue;
    const bool numbered = context.asked.size() < 2 || bytes[at + 1] == context.asked[1];
    if (numbered && FindBroken(context, bytes.subspan(at), direction).form != Form::kNone) {
      return at;
    }
  }
  return bytes.size();
}

Frame Noise(const Context& context, ByteView bytes, std::size_t first, Direction direction) {
  const std::string why = bytes[0] == older::kStartByte
                              ? "a start byte, and no frame behind it"
                              : fmt::format("no start byte {}", Hex(older::kStartByte));
  const std::string number =
      context.asked.size() > 1 ? fmt::format(" with the number {}", context.asked[1]) : "";
  return {FrameClass::kNoise,
          direction,
          fmt::format("{} bytes that are no frame: {}", bytes.size(), why),
          {{first, bytes.size(), "noise", why + number}}};
}

// What there is of a frame's head.
Frame CutShort(const Found& found, ByteView bytes, std::size_t first, Direction direction) {
  const std::string of = found.whole == 0
                             ? fmt::format("{} bytes", bytes.size())
                             : fmt::format("{} of {} bytes", bytes.size(), found.whole);
  Labels labels(bytes, first);
  labels.Put(1, "start byte", bytes[0] == older::kStartByte ? "" : "should be 0x10");
  if (bytes.size() > 1) labels.Put(1, "network number", std::to_string(bytes[1]));
  const std::string looks = fmt::format("looks like {}", NameOf(found.form));
  labels.Put(bytes.size(), "cut short", fmt::format("{}, {}", looks, of));
  return {FrameClass::kCutShort, direction, fmt::format("cut short: {}, {}", of, looks),
          labels.Take("cut short")};
}

Frame Explained(const Context& context, Form form, ByteView frame, std::size_t first,
                bool request) {
  switch (form) {
    case Form::kOlderRequest:
      return ExplainOlderRequest(context, frame, first);
    case Form::kOlderError:
      return ExplainOlderError(context, frame, first);
    case Form::kOlderReply:
      return ExplainOlderReply(context, frame, first);
    default:
      return ExplainK7(context, frame, first, request);
  }
}

// As long as it should be, and summed up wrong.
Frame WronglySummed(const Context& context, Form form, ByteView frame, std::size_t first,
                    Direction direction) {
  Frame explained = Explained(context, form, frame, first, direction == Direction::kSent);
  explained.kind = FrameClass::kWrongChecksum;
  explained.direction = direction == Direction::kUnknown ? explained.direction : direction;
  return explained;
}

// The driver takes an identification whatever its checksum is.
void TakeIdentification(Context& context, ByteView frame) {
  constexpr auto kIdentify = static_cast<std::uint8_t>(older::Function::kIdentify);
  const bool asked = context.asked.size() == older::kRequestSize && context.asked[2] == kIdentify;
  if (!asked || frame.size() != older::kIdentificationSize || frame[2] != kIdentify) return;
  context.Identify(frame[older::kFamilyAt], frame[older::kModelAt], frame[older::kVersionAt]);
}

}  // namespace

void AppendBroken(std::vector<Frame>& frames, Context& context, ByteView bytes, std::size_t first,
                  Direction direction) {
  while (!bytes.empty()) {
    const Found found = FindBroken(context, bytes, direction);
    std::size_t count = found.count;
    if (found.form == Form::kNone) {
      count = NextStart(context, bytes, direction);
      frames.push_back(Noise(context, bytes.first(count), first, direction));
    } else if (found.whole != 0 && found.whole <= bytes.size()) {
      TakeIdentification(context, bytes.first(count));
      frames.push_back(WronglySummed(context, found.form, bytes.first(count), first, direction));
    } else {
      count = NextStart(context, bytes, direction);
      frames.push_back(CutShort(found, bytes.first(count), first, direction));
    }
    bytes = bytes.subspan(count);
    first += count;
  }
}

}  // namespace host::frames
