#include "k7/link/transport.h"

#include <doctest/doctest.h>

#include <memory>

#include "simulator/k7/frame.h"
#include "tests/support/reading.h"

using support::Bytes;
using support::Hex;
using support::ToHex;
using support::operator+;

namespace {

Bytes LongFrame(int sequence, const Bytes& data, int command = 0x72, int address = 5) {
  return simulator::k7::Build({true, static_cast<std::uint8_t>(address),
                               static_cast<std::uint8_t>(sequence),
                               static_cast<std::uint8_t>(command), data});
}

Bytes ShortFrame(const Bytes& data) { return simulator::k7::Build({false, 5, 0, 0x72, data}); }

struct Line : support::Reading {
  explicit Line(k7::FrameMode mode = k7::FrameMode::kLong, int attempts = 1) {
    driver.stopRequest = 0;
    driver.param[0] = attempts;
    transport->Open(5, mode);
  }
  // The command of the reply; 0: none.
  int Query() { return transport->K7Query(0x72, Hex("01 02"), *reply).value_or(0); }

  std::unique_ptr<k7::Transport> transport = std::make_unique<k7::Transport>(driver);
  std::unique_ptr<k7::Reply> reply = std::make_unique<k7::Reply>();
};

const Bytes kRequest = LongFrame(1, Hex("01 02"));

}  // namespace

TEST_CASE("what stands before a reply is skipped: noise, the echo, replies to others") {
  const Bytes frame = LongFrame(1, Hex("AA BB CC"));
  for (const Bytes& before :
       {Bytes{}, Bytes(24, 0xFF), kRequest, kRequest + kRequest, LongFrame(2, Hex("AA")),
        LongFrame(1, Hex("AA"), 0x72, 6),
        Hex("10 10 05 10 05 90 10 05 90 01 10 05 90 01 00 03 00"),  // frame starts
        Hex("10 05 90 01 00 02 00 72 AA 00 00")}) {                 // a damaged reply
    INFO(ToHex(before));
    Line line;
    line.port.received = before + frame;
    CHECK(line.Query() == 0x72);
    CHECK(line.reply->length == 4);  // with the first byte of the CRC
    CHECK(ToHex({line.reply->bytes.begin(), line.reply->bytes.begin() + 5}) ==
          "AA BB CC " + ToHex({frame[11]}) + " 00");
    CHECK(line.port.writes == std::vector<Bytes>{kRequest});
    CHECK(line.port.readArguments.front() == "300 ms, 1");
    CHECK(line.port.received.empty());
    CHECK(line.stream.messages.empty());
  }
}

TEST_CASE("a failed query reports each attempt, all with one sequence number") {
  Line line(k7::FrameMode::kLong, 2);
  CHECK(line.Query() == 0);
  CHECK(line.stream.messages ==
        std::vector<std::string>{"ir=0 / error read (0)", "i=1 count=2 / warning query",
                                 "ir=0 / error read (0)", "i=2 count=2 / warning query",
                                 "count=2 / error query"});
  CHECK(line.port.writes == std::vector<Bytes>{kRequest, kRequest});

  line.transport->Open(5, k7::FrameMode::kLong);  // a new session starts from the beginning
  for (int i = 1; i <= 257; ++i) {                // and the number wraps
    line.port.received = LongFrame(i & 0xFF, {});
    REQUIRE(line.Query() == 0x72);
  }
  CHECK(line.port.writes.at(2) == kRequest);
  CHECK(line.port.writes.back() == kRequest);
}

TEST_CASE("bytes without a reply") {
  struct Case {
    Bytes received;
    const char* said;
  };
  for (const Case& c :
       {// A frame with command 0 is no reply, nor is what follows it.
        Case{LongFrame(1, Hex("AA"), 0) + LongFrame(1, {}), "ir=21 / error read (0)"},
        Case{Bytes(70000, 0x10), "ir=65535 / error read full"}}) {
    Line line;
    line.port.received = c.received;
    CHECK(line.Query() == 0);
    CHECK(line.stream.messages.front() == c.said);
    CHECK(line.port.reads <= 65535);
  }
}

TEST_CASE("the longest reply fills the buffer to its last byte") {
  Line line;
  line.port.received = LongFrame(1, Bytes(65525, 0x49), 0x61);
  CHECK(line.Query() == 0x61);
  CHECK(line.reply->length == 65526);
  CHECK(line.port.received.empty());
}

TEST_CASE("short frames: a reply without data is taken with the byte behind it") {
  Line line(k7::FrameMode::kShort);
  line.port.received = ShortFrame({}) + Hex("00");
  CHECK(line.Query() == 0x72);
  CHECK(line.reply->length == 0);
  CHECK(line.port.writes == std::vector<Bytes>{ShortFrame(Hex("01 02"))});

  line.port.received = ShortFrame({});
  CHECK(line.Query() == 0);
  CHECK(line.stream.Said("ir=5 / error read (0)"));
}

TEST_CASE("a short search without an end waits for the host's stop and reads nothing more") {
  Line line(k7::FrameMode::kShort, 2);
  line.port.received = ShortFrame(Hex("AA BB")) + Hex("00 00 00");
  support::clock::OnPause([&](unsigned) {
    if (support::clock::Pauses().size() == 20) line.driver.Stop();
  });
  CHECK(line.Query() == 0);
  CHECK(line.port.reads == 6);
  CHECK(support::clock::Pauses() == std::vector<unsigned>(20, 50));
  CHECK(line.stream.messages == std::vector<std::string>{"i=1 count=2 / warning query"});
}

TEST_CASE("waking up sends a run of FF and leaves the reply buffer clear") {
  Line line;
  line.reply->bytes.fill(0xEE);
  line.transport->WakeUp(*line.reply);
  CHECK(line.port.writes == std::vector<Bytes>{Bytes(24, 0xFF)});
  CHECK(line.port.readArguments == std::vector<std::string>{"300 ms, 0"});
  CHECK(support::clock::Pauses() == std::vector<unsigned>{100});
  CHECK(line.reply->bytes == k7::Reply{}.bytes);

  line.driver.port = nullptr;  // a driver without a port fails its queries
  line.transport->WakeUp(*line.reply);
  CHECK(line.Query() == 0);
}
