#include "host/frames/older_frames.h"

#include <fmt/format.h>

#include "host/frames/older_places.h"

namespace host::frames {
namespace {

using older::Function;

std::uint8_t SumOf(ByteView frame) {
  Bytes summed(frame.begin(), frame.end() - 1);
  return older::Checksum(summed);
}

void PutByte(Labels& labels, const char* name, unsigned expected, const char* unless) {
  const ByteView left = labels.Left();
  if (left.empty()) return;
  const bool right = left[0] == expected;
  labels.Put(1, name, right ? std::string() : fmt::format("should be {}{}", Hex(expected), unless));
}

void PutHead(Labels& labels, const char* unless) {
  PutByte(labels, "start byte", older::kStartByte, unless);
  if (!labels.Left().empty()) {
    labels.Put(1, "network number", std::to_string(labels.Left()[0]));
  }
}

void PutEnd(Labels& labels, ByteView frame, const char* unless) {
  const std::uint8_t sum = SumOf(frame);
  const bool right = IsSummed(frame);
  labels.Put(1, "checksum", right ? "right" : fmt::format("wrong, should be {}", Hex(sum)));
  PutByte(labels, "end byte", older::kEndByte, unless);
}

// The driver takes a reply by its length and its checksum.
constexpr const char* kNotCompared = "; the driver does not look at it";

const char* MeaningOf(Function function) {
  switch (function) {
    case Function::kIdentify:
      return "identification";
    case Function::kMemory:
      return "memory";
    case Function::kFlash:
      return "flash";
    case Function::kHourly:
      return "hourly record";
    case Function::kDaily:
      return "daily record";
    case Function::kMonthly:
      return "monthly record";
  }
  return "not known";
}

void PutFunction(Labels& labels) {
  if (labels.Left().empty()) return;
  const std::uint8_t code = labels.Left()[0];
  labels.Put(1, "function",
             fmt::format("'{}' {}", code >= 0x20 && code < 0x7F ? static_cast<char>(code) : '.',
                         MeaningOf(static_cast<Function>(code))));
}

// --- Requests ---

void PutNumber(Labels& labels, const char* name, unsigned value) {
  labels.Put(1, name, std::to_string(value));
}

void PutUnused(Labels& labels, std::size_t end) {
  labels.Put(labels.Left().size() - end, "not used");
}

void PutDate(Labels& labels, const older::Request& request) {
  const auto& p = request.parameters;
  PutNumber(labels, "year", 1900U + p[0]);
  PutNumber(labels, "month", p[1]);
  if (request.function != Function::kMonthly) PutNumber(labels, "day", p[2]);
  if (request.function == Function::kHourly) PutNumber(labels, "hour", p[3]);
}

void PutParameters(Labels& labels, const older::Request& request, const std::string& place) {
  const auto& p = request.parameters;
  const unsigned word = p[0] + 256U * p[1];
  switch (request.function) {
    case Function::kIdentify:
      PutNumber(labels, "heat system", p[0]);
      break;
    case Function::kMemory:
      labels.Put(2, "address", fmt::format("{}: {}", Hex(word, 4), place));
      PutNumber(labels, "bytes", p[2]);
      break;
    case Function::kFlash:
      labels.Put(2, "first page", fmt::format("{}: {}", word, place));
      PutNumber(labels, "pages", p[2]);
      break;
    default:
      PutDate(labels, request);
  }
}

// --- Replies ---

void PutData(Labels& labels, std::size_t size, const OlderPlace& place) {
  std::size_t left = size;
  for (const Piece& piece : place.pieces) {
    labels.Put(std::min(piece.count, left), piece.name, piece.meaning);
    left -= std::min(piece.count, left);
  }
  labels.Put(left, "data", place.name);
}

std::string ChecksumWord(ByteView frame) {
  return IsSummed(frame) ? "checksum right" : "checksum wrong";
}

OlderPlace PlaceOfReply(const Context& context, ByteView frame, ByteView data) {
  if (context.asked.size() == older::kRequestSize && context.asked[2] == frame[2]) {
    return FindPlace(context, RequestIn(context.asked), data);
  }
  // An identification tells all that it means by itself.
  if (frame[2] == static_cast<std::uint8_t>(Function::kIdentify)) {
    return FindPlace(context, {Function::kIdentify, {}}, data);
  }
  return {};
}

std::string MeaningOfCode(const Context& context, std::uint8_t code) {
  constexpr int kNoSuchRecord = static_cast<int>(older::ExchangeError::kReply3);
  const int number = static_cast<int>(older::ErrorOfReply(code));
  const bool tells = context.older == nullptr || context.older->archives[0].record.tells;
  const char* const why =
      number == kNoSuchRecord && tells ? "there is no such record" : "the request is refused";
  return fmt::format("{}: {}, error {} of the driver", code, why, number);
}

}  // namespace

bool IsSummed(ByteView frame) {
  return frame.size() > older::kReplyOverhead - 1 && SumOf(frame) == frame[frame.size() - 2];
}

std::size_t OlderReplySize(const Context& context) {
  if (context.asked.size() != older::kRequestSize) return 0;
  const older::Request request = RequestIn(context.asked);
  std::size_t size = FindPlace(context, request, {}).dataSize;
  if (size == 0) return 0;
  return size + older::kReplyOverhead;
}

Frame ExplainOlderRequest(const Context& context, ByteView frame, std::size_t first) {
  const older::Request request = RequestIn(frame);
  const std::string place = FindPlace(context, request, {}).name;
  Labels labels(frame, first);
  PutHead(labels, "");
  PutFunction(labels);
  PutParameters(labels, request, place);
  PutUnused(labels, 2);
  PutEnd(labels, frame, "");
  const std::string wrong = IsSummed(frame) ? "" : ", checksum wrong";
  return {FrameClass::kRequest, Direction::kSent, "ask " + place + wrong, labels.Take("not used")};
}

Frame ExplainOlderReply(const Context& context, ByteView frame, std::size_t first) {
  const std::size_t size = frame.size() - older::kReplyOverhead;
  Labels labels(frame, first);
  PutHead(labels, kNotCompared);
  PutFunction(labels);
  const OlderPlace place = PlaceOfReply(context, frame, frame.subspan(3, size));
  PutData(labels, size, place);
  PutEnd(labels, frame, kNotCompared);
  return {FrameClass::kReply, Direction::kReceived,
          fmt::format("reply {} bytes, {}{}{}", size, ChecksumWord(frame),
                      place.name.empty() ? "" : ": ", place.name),
          labels.Take("data")};
}

Frame ExplainOlderError(const Context& context, ByteView frame, std::size_t first) {
  const std::string meaning = MeaningOfCode(context, frame[3]);
  Labels labels(frame, first);
  PutHead(labels, kNotCompared);
  labels.Put(1, "error mark", "'!' instead of the function");
  labels.Put(1, "error code", meaning);
  labels.Put(labels.Left().size() - 2, "data");
  PutEnd(labels, frame, kNotCompared);
  return {FrameClass::kErrorReply, Direction::kReceived, "error reply " + meaning,
          labels.Take("data")};
}

}  // namespace host::frames
