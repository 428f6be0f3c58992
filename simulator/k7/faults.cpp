// Replies of the newer protocol that go wrong, or that only look as if they did.
#include <algorithm>
#include <span>

#include "simulator/k7/frame.h"
#include "simulator/k7/instrument.h"
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

// The end of the item that starts at an index.
std::size_t EndOfItem(const Bytes& data, std::size_t at) {
  const std::uint8_t first = data[at + 1];
  if (first < 0x80) return at + 2 + first;
  std::size_t length = 0;
  for (std::size_t i = 0; i < first - 0x80u; ++i) length = length * 256 + data[at + 2 + i];
  return at + 2 + (first - 0x80u) + length;
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

std::span<const FaultKind> FaultKinds() { return kFaults; }

}  // namespace simulator::k7
