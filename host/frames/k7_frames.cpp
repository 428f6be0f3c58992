#include "host/frames/k7_frames.h"

#include <fmt/format.h>

#include "host/frames/k7_items.h"
#include "host/frames/values.h"
#include "host/stream/cell.h"
#include "k7/link/crc.h"
#include "k7/reading/archive_kinds.h"
#include "k7/session/session.h"

namespace host::frames {
namespace {

using k7::kCommandAt;
using k7::kDataAt;

constexpr std::size_t kCrcSize = 2;
constexpr std::size_t kShortDataAt = 3;
constexpr std::size_t kShortOverhead = 5;
constexpr std::size_t kIdentityRequestSize = 4;
constexpr std::size_t kArchiveRequestSize = sizeof(k7::ArchiveRequest);

bool Starts(ByteView data, std::initializer_list<unsigned char> with) {
  return data.size() >= with.size() && std::equal(with.begin(), with.end(), data.begin());
}

// --- Names ---

const char* CommandName(unsigned command) {
  switch (command) {
    case k7::kIdentify:
      return "identification";
    case k7::kReadParameters:
      return "parameters";
    case k7::kReadArchive:
      return "archive";
    default:
      return "not known";
  }
}

struct KindName {
  k7::Kind kind;
  const char* name;
  std::size_t dateDigits;  // of "2016-09-04 13:05:09"
};
constexpr KindName kKinds[] = {
    {k7::Kind::kHour, "hour", 13},      {k7::Kind::kDay, "day", 10},
    {k7::Kind::kMon, "month", 7},       {k7::Kind::kControl, "control record of", 10},
    {k7::Kind::kChange, "changes", 13}, {k7::Kind::kEvent, "events", 13},
};

const KindName* FindKind(unsigned kind) {
  for (const KindName& known : kKinds) {
    if (static_cast<unsigned>(known.kind) == kind) return &known;
  }
  return nullptr;
}

std::string HourText(ByteView hour) {
  return fmt::format("{}-{:02}-{:02} {:02}:00", 2000 + hour[0], hour[1], hour[2], hour[3]);
}

std::string ChannelName(unsigned channel) {
  return channel == 0 ? std::string() : fmt::format(" of system {}", channel);
}

std::string ArchiveName(ByteView data) {
  if (data.size() != kArchiveRequestSize) return "archive";
  const KindName* kind = FindKind(data[5]);
  const std::string from = HourText(data.subspan(k7::kFromAt));
  const std::string to = HourText(data.subspan(k7::kToAt));
  const std::string of = ChannelName(data[4]);
  if (kind == nullptr) return fmt::format("archive kind {} {}{}", data[5], from, of);
  const bool log = kind->kind == k7::Kind::kChange || kind->kind == k7::Kind::kEvent;
  if (log) return fmt::format("{} {} to {}{}", kind->name, from, to, of);
  const std::string date = kind->dateDigits == 13 ? from : from.substr(0, kind->dateDigits);
  return fmt::format("{} {}{}", kind->name, date, of);
}

std::string ParametersName(const k7::Model* model, ByteView data) {
  const auto meanings = MeaningsOf(model, data);
  if (meanings.empty()) return "parameters";
  const std::string of = ChannelName(data[2]);
  if (meanings.size() == 1) return meanings[0].name + of;
  return fmt::format("{} parameters, {} to {}{}", meanings.size(), meanings.front().name,
                     meanings.back().name, of);
}

// What a request asks for.
std::string PlaceName(const k7::Model* model, unsigned command, ByteView data) {
  if (command == k7::kReadArchive) return ArchiveName(data);
  if (command == k7::kReadParameters) return ParametersName(model, data);
  if (command == k7::kIdentify) return "identification";
  return fmt::format("command {}", Hex(command));
}

// --- Requests ---

void PutReferences(Labels& labels, const k7::Model* model, std::size_t size) {
  ByteView left = labels.Left().first(size);
  for (; left.size() >= k7::kReferenceSize; left = left.subspan(k7::kReferenceSize)) {
    const unsigned number = left[3] + 256U * left[4];
    labels.Put(2, "reference", fmt::format("tag {}, {} bytes", Hex(left[0]), left[1]));
    labels.Put(1, "channel", std::to_string(left[2]));
    labels.Put(
        2, "parameter",
        fmt::format("{}: {}", Hex(number, 4), ParameterMeaning(model, left[2], number).name));
  }
}

void PutStamp(Labels& labels, const char* name, const char* rest, std::string meaningOfRest) {
  labels.Put(2, fmt::format("{}, item", name), "tag 0x49, 8 bytes");
  const ByteView left = labels.Left();
  if (left.size() >= 4) labels.Put(4, name, HourText(left));
  labels.Put(4, rest, std::move(meaningOfRest));
}

void PutArchiveRequest(Labels& labels) {
  const ByteView data = labels.Left();
  const KindName* kind = FindKind(data[5]);
  labels.Put(4, "head", "tag 0x04, 5 bytes");
  labels.Put(1, "channel", std::to_string(data[4]));
  labels.Put(1, "archive", kind != nullptr ? kind->name : std::to_string(data[5]));
  labels.Put(1, "selector", data[6] == 1 ? "periodic" : "log");
  PutStamp(labels, "from", "end, rest",
           fmt::format("minute {}, second {} of the end", data[13], data[14]));
  PutStamp(labels, "to", "not used", {});
}

void PutRequestData(Labels& labels, const k7::Model* model, unsigned command, std::size_t size) {
  if (command == k7::kIdentify) labels.Put(size, "not used");
  if (command == k7::kReadParameters) PutReferences(labels, model, size);
  if (command == k7::kReadArchive && size == kArchiveRequestSize) PutArchiveRequest(labels);
}

// --- Replies ---

void PutIdentification(Labels& labels, const Context& context, std::size_t size) {
  if (size < k7::kVersionAt + 1) return;
  const std::uint8_t version = labels.Left()[k7::kVersionAt];
  labels.Put(2, "model",
             context.k7 != nullptr ? NameOf(*context.k7) : "none that the driver knows");
  labels.Put(1, "not used");
  labels.Put(1, "version", fmt::format("V{}", version));
}

// The data of the request before it, if that has the command.
ByteView AskedData(const Context& context, unsigned command) {
  const ByteView asked = context.asked;
  if (StartsK7(asked) && asked.size() > kDataAt + kCrcSize && asked[kCommandAt] == command) {
    return asked.subspan(kDataAt, asked.size() - kDataAt - kCrcSize);
  }
  return {};
}

void PutReplyData(Labels& labels, const Context& context, unsigned command, std::size_t size) {
  const ByteView asked = AskedData(context, command);
  if (command == k7::kIdentify) PutIdentification(labels, context, size);
  if (command == k7::kReadParameters) PutItems(labels, size, MeaningsOf(context.k7, asked));
  if (command == k7::kReadArchive) {
    const unsigned kind = asked.size() == kArchiveRequestSize ? asked[5] : 0;
    PutRecords(labels, size,
               asked.empty() ? std::vector<ItemMeaning>() : RecordMeanings(context.k7, kind));
  }
}

std::string Summary(const Context& context, unsigned command, std::size_t size, bool right) {
  const ByteView asked = AskedData(context, command);
  const std::string of =
      asked.empty() ? CommandName(command) : PlaceName(context.k7, command, asked);
  return fmt::format("reply {} bytes, checksum {}: {}", size, right ? "right" : "wrong", of);
}

Frame Finish(Labels& labels, bool request, std::string summary) {
  return {request ? FrameClass::kRequest : FrameClass::kReply,
          request ? Direction::kSent : Direction::kReceived, std::move(summary),
          labels.Take("data")};
}

}  // namespace

bool StartsK7(ByteView bytes) {
  return bytes.size() >= kDataAt && bytes[0] == k7::kStartByte && bytes[2] == k7::kLongMarker &&
         bytes[4] == 0;
}

std::size_t K7Size(ByteView bytes) {
  return bytes[k7::kLengthAt] + 256U * bytes[k7::kLengthAt + 1] + k7::kLongOverhead;
}

bool IsK7Summed(ByteView frame) { return k7::Crc16(frame.subspan(1)) == 0; }

bool IsK7RequestData(std::uint8_t command, ByteView data) {
  if (command == k7::kIdentify) return data.size() == kIdentityRequestSize && data[0] == 0;
  if (command == k7::kReadParameters) return Starts(data, {k7::kReferenceTag, 3});
  return command == k7::kReadArchive && data.size() == kArchiveRequestSize &&
         Starts(data, {0x04, 5, 0xFF, 0xFF});
}

Frame ExplainK7(const Context& context, ByteView frame, std::size_t first, bool request) {
  const unsigned command = frame[kCommandAt];
  const ByteView data = frame.subspan(kDataAt, frame.size() - kDataAt - kCrcSize);
  const std::uint16_t crc = k7::Crc16(frame.subspan(1, frame.size() - 1 - kCrcSize));
  const bool right = IsK7Summed(frame);
  Labels labels(frame, first);
  labels.Put(1, "start byte");
  labels.Put(1, "network number", std::to_string(frame[1]));
  labels.Put(1, "marker", "long frame");
  labels.Put(1, "sequence number", std::to_string(frame[3]));
  labels.Put(1, "zero");
  labels.Put(2, "length", std::to_string(K7Size(frame) - k7::kLongOverhead));
  labels.Put(1, "command", CommandName(command));
  if (request) {
    PutRequestData(labels, context.k7, command, data.size());
  } else {
    PutReplyData(labels, context, command, data.size());
  }
  labels.Put(labels.Left().size() - kCrcSize, request ? "data" : "not described");
  labels.Put(kCrcSize, "checksum", right ? "right" : "wrong, should be " + Hex(crc, 4));
  if (!request) return Finish(labels, request, Summary(context, command, data.size(), right));
  return Finish(labels, request,
                "ask " + PlaceName(context.k7, command, data) + (right ? "" : ", checksum wrong"));
}

Frame ExplainK7Short(const Context& context, ByteView frame, std::size_t first, bool request) {
  const unsigned command = frame[2];
  const ByteView data = frame.subspan(kShortDataAt, frame.size() - kShortOverhead);
  const std::uint8_t sum = k7::Checksum(frame.subspan(1, frame.size() - 3));
  const bool right = sum == frame[frame.size() - 2];
  Labels labels(frame, first);
  labels.Put(1, "start byte");
  labels.Put(1, "network number", std::to_string(frame[1]));
  labels.Put(1, "command", CommandName(command));
  if (request) PutRequestData(labels, context.k7, command, data.size());
  labels.Put(labels.Left().size() - 2, "data");
  labels.Put(1, "checksum", right ? "right" : "wrong, should be " + Hex(sum));
  labels.Put(1, "stop byte", frame.back() == k7::kStopByte ? "" : "should be 0x16");
  if (request) {
    return Finish(labels, request,
                  "ask " + PlaceName(context.k7, command, data) + " in a short frame");
  }
  return Finish(
      labels, request,
      fmt::format("short reply, checksum {}: {}", right ? "right" : "wrong", CommandName(command)));
}

}  // namespace host::frames
