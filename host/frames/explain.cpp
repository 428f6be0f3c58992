#include "host/frames/explain.h"

#include <fmt/format.h>

#include <stdexcept>
#include <string_view>

#include "host/frames/broken.h"
#include "host/frames/find.h"
#include "host/frames/k7_frames.h"
#include "host/frames/older_frames.h"

namespace host::frames {
namespace {

constexpr std::size_t kNumberAt = 1;
constexpr std::size_t kFunctionAt = 2;
constexpr std::size_t kSequenceAt = 3;

bool IsSame(ByteView left, ByteView right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end());
}

// Whether a frame that can be both is a reply to the request before it.
bool Answers(const Context& context, ByteView frame) {
  const ByteView asked = context.asked;
  return StartsK7(asked) && asked[kNumberAt] == frame[kNumberAt] &&
         asked[kSequenceAt] == frame[kSequenceAt] && !IsSame(asked, frame);
}

bool IsK7Request(const Context& context, ByteView frame, Direction direction) {
  if (direction != Direction::kUnknown) {
    return direction == Direction::kSent || IsSame(frame, context.asked);
  }
  const ByteView data = frame.subspan(k7::kDataAt, frame.size() - k7::kDataAt - 2);
  return IsK7RequestData(frame[k7::kCommandAt], data) && !Answers(context, frame);
}

Frame WakeUp(std::size_t count, std::size_t first) {
  return {FrameClass::kWakeUp,
          Direction::kSent,
          fmt::format("wake up, {} bytes 0xFF", count),
          {{first, count, "wake-up", {}}}};
}

// --- What a frame with a right checksum is to the request before it ---

void Call(Frame& frame, FrameClass kind, const std::string& why) {
  frame.kind = kind;
  frame.summary = fmt::format("{}: {}", why, frame.summary);
}

void JudgeK7(const Context& context, ByteView frame, Frame& explained) {
  const ByteView asked = context.asked;
  if (!StartsK7(asked)) return;
  if (frame[kNumberAt] != asked[kNumberAt]) {
    return Call(explained, FrameClass::kForeign,
                fmt::format("of number {}, {} was asked", frame[kNumberAt], asked[kNumberAt]));
  }
  if (frame[kSequenceAt] != asked[kSequenceAt]) {
    return Call(explained, FrameClass::kLate,
                fmt::format("to request {}, {} was asked", frame[kSequenceAt], asked[kSequenceAt]));
  }
  if (frame[k7::kCommandAt] != asked[k7::kCommandAt]) {
    Call(explained, FrameClass::kLate, "to another command");
  }
}

// An identification's checksum is not looked at by the driver, its size is.
void JudgeOlder(const Context& context, ByteView frame, Frame& explained) {
  const ByteView asked = context.asked;
  if (asked.size() != older::kRequestSize) return;
  if (frame[kNumberAt] != asked[kNumberAt]) {
    return Call(explained, FrameClass::kForeign,
                fmt::format("of number {}, {} was asked", frame[kNumberAt], asked[kNumberAt]));
  }
  const std::size_t size = OlderReplySize(context);
  const bool fits = frame[kFunctionAt] == asked[kFunctionAt] && (size == 0 || frame.size() == size);
  if (explained.kind == FrameClass::kReply && !fits) {
    Call(explained, FrameClass::kLate, "to another request");
  }
}

class Reader {
 public:
  Reader(Context& context, Direction direction, std::size_t first)
      : context_(context), direction_(direction), first_(first) {}

  // A frame with a right checksum.
  Frame Take(const Found& found, ByteView frame) {
    switch (found.form) {
      case Form::kWakeUp:
        return WakeUp(frame.size(), first_);
      case Form::kK7Long:
        return TakeLong(frame);
      case Form::kK7Short:
        return TakeShort(frame);
      case Form::kOlderRequest:
        return Asked(ExplainOlderRequest(context_, frame, first_), frame, Protocol::kOlder);
      default:
        return TakeOlder(found.form, frame);
    }
  }

 private:
  Frame TakeLong(ByteView frame) {
    if (IsK7Request(context_, frame, direction_)) {
      return Asked(ExplainK7(context_, frame, first_, true), frame, Protocol::kK7);
    }
    context_.protocol = Protocol::kK7;
    if (frame[k7::kCommandAt] == k7::kIdentify && frame.size() > k7::kDataAt + 5) {
      context_.Identify(frame[k7::kDataAt] + 256U * frame[k7::kDataAt + 1]);
    }
    Frame explained = ExplainK7(context_, frame, first_, false);
    JudgeK7(context_, frame, explained);
    return explained;
  }

  Frame TakeShort(ByteView frame) {
    const bool echo = IsSame(frame, context_.asked);
    const bool request = direction_ == Direction::kSent || echo ||
                         (direction_ == Direction::kUnknown && frame.size() > 5);
    Frame explained = ExplainK7Short(context_, frame, first_, request);
    return request ? Asked(std::move(explained), frame, Protocol::kK7) : explained;
  }

  // A request, or its echo.
  Frame Asked(Frame explained, ByteView frame, Protocol protocol) {
    context_.protocol = protocol;
    if (direction_ == Direction::kReceived) {
      explained.direction = Direction::kReceived;
      Call(explained, IsSame(frame, context_.asked) ? FrameClass::kEcho : FrameClass::kForeign,
           IsSame(frame, context_.asked) ? "echo of the request" : "another host's request");
    } else {
      context_.Ask(frame);
    }
    return explained;
  }

  Frame TakeOlder(Form form, ByteView frame) {
    context_.protocol = Protocol::kOlder;
    const bool identification =
        frame[kFunctionAt] == static_cast<std::uint8_t>(older::Function::kIdentify) &&
        frame.size() == older::kIdentificationSize;
    if (identification) {
      context_.Identify(frame[older::kFamilyAt], frame[older::kModelAt], frame[older::kVersionAt]);
    }
    Frame explained = form == Form::kOlderError ? ExplainOlderError(context_, frame, first_)
                                                : ExplainOlderReply(context_, frame, first_);
    JudgeOlder(context_, frame, explained);
    KeepPage(frame, explained);
    return explained;
  }

  void KeepPage(ByteView frame, const Frame& explained) {
    if (explained.kind != FrameClass::kReply || frame.size() != older::kFlashPageSize + 5) return;
    context_.flash.insert(context_.flash.end(), frame.begin() + 3, frame.end() - 2);
  }

  Context& context_;
  Direction direction_;
  std::size_t first_;
};

// The next place from which on a frame with a right checksum stands; the end: none.
std::size_t NextRight(const Context& context, ByteView bytes, std::size_t from,
                      Direction direction) {
  for (std::size_t at = from; at < bytes.size(); ++at) {
    const bool start = bytes[at] == older::kStartByte || bytes[at] == 0xFF;
    if (start && FindRight(context, bytes.subspan(at), direction, false).right) return at;
  }
  return bytes.size();
}

}  // namespace

const char* NameOf(FrameClass kind) {
  constexpr const char* kClasses[] = {"wake-up",        "request", "reply", "error reply",
                                      "wrong checksum", "foreign", "late",  "echo",
                                      "cut short",      "noise"};
  return kClasses[static_cast<std::size_t>(kind)];
}

Explainer::Explainer(Protocol protocol, const std::string& model)
    : context_(std::make_unique<Context>()) {
  context_->protocol = protocol;
  context_->only = protocol != Protocol::kUnknown;
  if (model.empty()) return;
  for (const ModelName& named : NamedModels()) {
    if (model != named.name) continue;
    context_->older = named.older;
    context_->k7 = named.k7;
    context_->protocol = named.k7 != nullptr ? Protocol::kK7 : Protocol::kOlder;
    context_->only = true;
    return;
  }
  throw std::invalid_argument("there is no model " + model);
}

Explainer::~Explainer() = default;
Explainer::Explainer(Explainer&&) noexcept = default;
Explainer& Explainer::operator=(Explainer&&) noexcept = default;

std::vector<Frame> Explainer::Explain(ByteView bytes, Direction direction) {
  std::vector<Frame> frames;
  for (std::size_t at = 0; at < bytes.size();) {
    const ByteView rest = bytes.subspan(at);
    const Found found = FindRight(*context_, rest, direction, true);
    if (found.right) {
      frames.push_back(Reader(*context_, direction, at).Take(found, rest.first(found.count)));
      at += found.count;
    } else {
      const std::size_t end = NextRight(*context_, bytes, at + 1, direction);
      AppendBroken(frames, *context_, bytes.subspan(at, end - at), at, direction);
      at = end;
    }
  }
  return frames;
}

std::vector<Frame> Explainer::ExplainDropped(ByteView bytes, std::size_t read) {
  std::vector<Frame> frames = Explain(bytes, Direction::kReceived);
  for (Frame& frame : frames) {
    const bool good = frame.kind == FrameClass::kReply || frame.kind == FrameClass::kErrorReply;
    if (!good || frame.First() + frame.Size() <= read) continue;
    Call(frame, FrameClass::kLate, frame.First() < read ? "not read to its end" : "not read");
  }
  return frames;
}

bool Explainer::IsWholeReply(ByteView received) const {
  if (received.empty()) return false;
  const Found found = FindRight(*context_, received, Direction::kReceived, true);
  return found.right && found.count == received.size();
}

}  // namespace host::frames
