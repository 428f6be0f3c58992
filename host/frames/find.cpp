#include "host/frames/find.h"

#include "host/frames/k7_frames.h"
#include "host/frames/older_frames.h"
#include "older/session/identity.h"

namespace host::frames {
namespace {

constexpr std::uint8_t kWakeUpByte = 0xFF;
constexpr std::size_t kSmallestSummed = 5;
constexpr std::size_t kMostSummed = older::kMostReplyData + older::kReplyOverhead;
constexpr std::size_t kSmallestK7 = k7::kLongOverhead + 1;
constexpr std::size_t kNumberAt = 1;
constexpr std::size_t kFunctionAt = 2;

bool MayBe(const Context& context, Protocol protocol) {
  return !context.only || context.protocol == protocol;
}

bool IsRequest(ByteView frame) {
  constexpr char kFunctions[] = {'?', 'R', 'E', 'H', 'Y', 'M'};
  return frame.size() == older::kRequestSize && frame.back() == older::kEndByte &&
         std::find(std::begin(kFunctions), std::end(kFunctions), frame[kFunctionAt]) !=
             std::end(kFunctions);
}

Found Right(Form form, std::size_t count) { return {form, count, count, true}; }

// --- Frames with a sum: the older protocol's, short ones of K7 ---

bool IsError(ByteView bytes) {
  return bytes.size() > kFunctionAt && bytes[kFunctionAt] == older::kErrorMark;
}

bool IsSummedFrame(ByteView bytes, std::size_t size) {
  return bytes.size() >= size && bytes[size - 1] == older::kEndByte && IsSummed(bytes.first(size));
}

// The size of the frame with start, end and sum that bytes are or begin with; 0: none.
std::size_t SummedSize(ByteView bytes) {
  const std::size_t most = std::min(bytes.size(), kMostSummed);
  if (bytes.size() == most && most >= kSmallestSummed && IsSummedFrame(bytes, most)) return most;
  for (std::size_t size = kSmallestSummed; size <= most; ++size) {
    if (IsSummedFrame(bytes, size)) return size;
  }
  return 0;
}

// By what the request before it asked for.
std::optional<Found> FindAsked(const Context& context, ByteView bytes, bool aligned) {
  if (!aligned && bytes[0] != older::kStartByte) return std::nullopt;
  const std::size_t size = OlderReplySize(context);
  if (size == 0) return std::nullopt;
  if (IsError(bytes) && bytes.size() >= kOlderErrorSize && IsSummed(bytes.first(kOlderErrorSize))) {
    return Right(Form::kOlderError, kOlderErrorSize);
  }
  if (bytes.size() >= size && !IsError(bytes) && IsSummed(bytes.first(size))) {
    return Right(Form::kOlderReply, size);
  }
  return std::nullopt;
}

Form FormOfSummed(const Context& context, ByteView frame, Direction direction) {
  if (context.protocol == Protocol::kK7 || frame.size() == kSmallestSummed) return Form::kK7Short;
  if (IsError(frame)) return Form::kOlderError;
  const bool echo =
      std::equal(frame.begin(), frame.end(), context.asked.begin(), context.asked.end());
  const bool request = direction != Direction::kReceived || echo;
  return request && IsRequest(frame) ? Form::kOlderRequest : Form::kOlderReply;
}

Found FindSummed(const Context& context, ByteView bytes, Direction direction, bool aligned) {
  if (direction != Direction::kSent && context.protocol != Protocol::kK7) {
    if (const auto asked = FindAsked(context, bytes, aligned)) {
      const bool request = direction == Direction::kUnknown && IsRequest(bytes.first(asked->count));
      if (!request) return *asked;
    }
  }
  // A session speaks in one kind of frame.
  if (bytes[0] != older::kStartByte ||
      (direction == Direction::kReceived && StartsK7(context.asked))) {
    return {};
  }
  const std::size_t size = SummedSize(bytes);
  if (size == 0) return {};
  const Form form = FormOfSummed(context, bytes.first(size), direction);
  if (form == Form::kK7Short && context.protocol == Protocol::kOlder) return {};
  return Right(form, size);
}

// --- Long frames of K7 ---

bool IsLongFrame(ByteView bytes) {
  if (!StartsK7(bytes)) return false;
  const std::size_t size = K7Size(bytes);
  return size >= kSmallestK7 && size <= bytes.size() && IsK7Summed(bytes.first(size));
}

// As much as there is of the first bytes of a long frame.
bool LooksLong(const Context& context, ByteView bytes) {
  const bool marked = bytes.size() <= 2 || bytes[2] == k7::kLongMarker;
  const bool numbered =
      context.asked.size() < 2 || bytes.size() < 2 || bytes[1] == context.asked[1];
  return bytes[0] == k7::kStartByte && marked && (bytes.size() > 2 || numbered);
}

// Some bytes 0xFF among others need be no wake-up.
std::size_t LeastWakeUp(Direction direction) {
  if (direction == Direction::kReceived) return static_cast<std::size_t>(-1);
  return direction == Direction::kSent ? 1 : 3;
}

std::size_t WakeUpSize(ByteView bytes) {
  std::size_t size = 0;
  while (size < bytes.size() && bytes[size] == kWakeUpByte) ++size;
  return size;
}

// --- What is no frame ---

Found Broken(Form form, ByteView bytes, std::size_t whole) {
  return {form, std::min(bytes.size(), whole), whole, false};
}

Found BrokenK7(ByteView bytes) {
  // Less than its head, or a length that is not there.
  if (bytes.size() < k7::kDataAt) return {Form::kK7Long, bytes.size(), 0, false};
  const std::size_t size = K7Size(bytes);
  if (size < kSmallestK7) return {Form::kNone, bytes.size(), 0, false};
  return Broken(Form::kK7Long, bytes, size);
}

Found BrokenReply(const Context& context, ByteView bytes) {
  if (IsError(bytes)) return Broken(Form::kOlderError, bytes, kOlderErrorSize);
  const std::size_t size = OlderReplySize(context);
  if (size != 0 && (bytes[0] == older::kStartByte || bytes.size() == size)) {
    return Broken(Form::kOlderReply, bytes, size);
  }
  if (bytes[0] != older::kStartByte) return {Form::kNone, bytes.size(), 0, false};
  const bool ends = bytes.back() == older::kEndByte && bytes.size() > older::kReplyOverhead;
  return {Form::kOlderReply, bytes.size(), ends ? bytes.size() : 0, false};
}

Found BrokenRequest(ByteView bytes) {
  return Broken(Form::kOlderRequest, bytes, older::kRequestSize);
}

}  // namespace

Found FindRight(const Context& context, ByteView bytes, Direction direction, bool aligned) {
  const std::size_t wakeUp = WakeUpSize(bytes);
  if (wakeUp >= LeastWakeUp(direction)) return Right(Form::kWakeUp, wakeUp);
  if (MayBe(context, Protocol::kK7) && IsLongFrame(bytes)) {
    return Right(Form::kK7Long, K7Size(bytes));
  }
  return FindSummed(context, bytes, direction, aligned);
}

Found FindBroken(const Context& context, ByteView bytes, Direction direction) {
  const bool k7 = context.protocol == Protocol::kK7 ||
                  (context.protocol == Protocol::kUnknown && StartsK7(bytes));
  if (k7) {
    if (LooksLong(context, bytes)) return BrokenK7(bytes);
    return {Form::kNone, bytes.size(), 0, false};
  }
  const bool request =
      direction == Direction::kSent ||
      (direction == Direction::kUnknown && bytes.size() == older::kRequestSize && IsRequest(bytes));
  return request && bytes[0] == older::kStartByte ? BrokenRequest(bytes)
                                                  : BrokenReply(context, bytes);
}

}  // namespace host::frames
