#include "simulator/k7/faults.h"

#include <algorithm>

#include "simulator/k7/frame.h"
#include "simulator/k7/items.h"

namespace simulator::k7 {
namespace {

constexpr std::uint8_t kReadArchive = 0x61;

// Changes the frame of a long reply and sums it up again.
template <typename Change>
void Rebuild(Exchange& exchange, Change change) {
  Bytes& bytes = exchange.reply.front().bytes;
  std::optional<Frame> frame = Parse(bytes);
  if (!frame || !frame->isLong) return;
  change(*frame);
  bytes = Build(*frame);
}

// The same for the data of an archive reply that holds a record.
template <typename Change>
void RebuildRecords(Exchange& exchange, Change change) {
  Rebuild(exchange, [&](Frame& frame) {
    if (frame.command == kReadArchive && !frame.data.empty()) change(frame.data);
  });
}

void PutBefore(Exchange& exchange, const Bytes& bytes) {
  Bytes& reply = exchange.reply.front().bytes;
  reply.insert(reply.begin(), bytes.begin(), bytes.end());
}

// The end of the item that starts at an index, or of the data if the item claims to go on behind
// them: another fault may have been here before.
std::size_t EndOfItem(const Bytes& data, std::size_t at) {
  const auto byte = [&](std::size_t index) -> std::size_t {
    return index < data.size() ? data[index] : 0;
  };
  std::size_t length = byte(at + 1);
  std::size_t start = at + 2;
  if (length >= 0x80) {
    const std::size_t sizes = length - 0x80;
    length = 0;
    for (std::size_t i = 0; i < sizes; ++i) length = (length * 256 + byte(start + i)) & 0xFFFF;
    start += sizes;
  }
  return std::min(start + length, data.size());
}

void WrongSequence(Exchange& exchange, Random&) {
  Rebuild(exchange, [](Frame& frame) { ++frame.sequence; });
}

void Echo(Exchange& exchange, Random&) { PutBefore(exchange, exchange.request); }

// Starts of the very reply that is expected, with lengths that reach into it and behind it.
void FalseStarts(Exchange& exchange, Random& random) {
  const Bytes& reply = exchange.reply.front().bytes;
  if (reply.size() < 10) return;
  Bytes noise;
  for (std::size_t i = 1 + random.Below(4); i > 0; --i) {
    noise.insert(noise.end(), reply.begin(), reply.begin() + 5);
    noise.push_back(static_cast<std::uint8_t>(random.Below(reply.size() + 20)));
    if (random.Below(2) == 0) noise.push_back(0);
  }
  PutBefore(exchange, noise);
}

void OtherCommand(Exchange& exchange, Random&) {
  Rebuild(exchange, [](Frame& frame) { frame.command ^= 0x40; });
}

void UnknownItems(Exchange& exchange, Random& random) {
  RebuildRecords(exchange, [&](Bytes& data) {
    Bytes mixed;
    for (std::size_t at = 0; at < data.size();) {
      const std::size_t end = EndOfItem(data, EndOfItem(data, at));
      Bytes unknown(random.Below(6));
      std::generate(unknown.begin(), unknown.end(), [&] { return random.Byte(); });
      PutItem(mixed, 0x05, unknown);
      mixed.insert(mixed.end(), data.begin() + static_cast<std::ptrdiff_t>(at),
                   data.begin() + static_cast<std::ptrdiff_t>(end));
      at = end;
    }
    PutItem(mixed, 0x06, {});
    data = mixed;
  });
}

void StampAlone(Exchange& exchange, Random&) {
  RebuildRecords(exchange, [](Bytes& data) {
    data.resize(EndOfItem(data, 0));
    PutItem(data, 0x05, {});
  });
}

// The first record claims a byte more than there is.
void PastEnd(Exchange& exchange, Random&) {
  RebuildRecords(exchange, [](Bytes& data) {
    const std::size_t record = EndOfItem(data, 0);
    if (record + 4 > data.size()) return;
    const std::size_t room = data.size() - record;
    data[record + 1] = 0x82;
    data[record + 2] = static_cast<std::uint8_t>(room >> 8);
    data[record + 3] = static_cast<std::uint8_t>(room);
  });
}

void SeveralRecords(Exchange& exchange, Random&) {
  RebuildRecords(exchange, [](Bytes& data) {
    const Bytes once = data;
    data.insert(data.end(), once.begin(), once.end());
  });
}

void EmptyReply(Exchange& exchange, Random&) {
  Rebuild(exchange, [](Frame& frame) { frame.data.clear(); });
}

constexpr FaultKind kFaults[] = {
    {{"wrong-sequence", "the reply has the next request's sequence number"}, WrongSequence},
    {{"echo", "the request comes back before the reply"}, Echo},
    {{"false-starts", "starts of frames come before the reply"}, FalseStarts},
    {{"other-command", "the reply has another command code"}, OtherCommand},
    {{"unknown-items", "unknown items stand between the records of an archive"}, UnknownItems},
    {{"stamp-alone", "a time stamp stands without its record"}, StampAlone},
    {{"past-end", "a record claims to go on behind the reply"}, PastEnd},
    {{"several-records", "an archive reply holds its records twice"}, SeveralRecords},
    {{"empty-reply", "the reply carries no data"}, EmptyReply},
};

}  // namespace

std::span<const FaultKind> Faults() { return kFaults; }

}  // namespace simulator::k7
