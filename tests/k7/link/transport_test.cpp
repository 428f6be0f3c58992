#include "k7/link/transport.h"

#include <doctest/doctest.h>

#include <memory>

#include "tests/k7/fixture.h"

using k7test::LongFrame;
using support::Bytes;
using support::Hex;
using support::ToHex;
using support::operator+;

namespace {

struct Line : k7test::Host {
  explicit Line(k7::FrameMode mode = k7::FrameMode::kLong, int attempts = 1) {
    driver.param[0] = attempts;
    transport->Open(k7test::kAddress, mode);
  }
  k7::ReceivedCommand Query(const Bytes& data = Hex("01 02")) {
    return transport->K7Query(0x72, data, *reply);
  }

  std::unique_ptr<k7::Transport> transport = std::make_unique<k7::Transport>(driver);
  std::unique_ptr<k7::Reply> reply = std::make_unique<k7::Reply>();
};

}  // namespace

TEST_CASE("a reply is handed over with the first byte of its CRC") {
  Line line;
  const Bytes frame = LongFrame(5, 1, 0x72, Hex("AA BB CC"));
  line.port.received = frame;
  CHECK(line.Query() == 0x72);
  CHECK(line.reply->length == 4);
  CHECK(ToHex({line.reply->bytes.begin(), line.reply->bytes.begin() + 5}) ==
        "AA BB CC " + ToHex({frame[11]}) + " 00");
  CHECK(line.port.writes == std::vector<Bytes>{LongFrame(5, 1, 0x72, Hex("01 02"))});
  CHECK(line.port.readArguments.front() == "300 ms, 1");
  CHECK(line.stream.messages.empty());
}

TEST_CASE("what stands before a reply is skipped: noise, the echo, replies to others") {
  const Bytes reply = LongFrame(5, 1, 0x72, Hex("AA"));
  struct Case {
    const char* name;
    Bytes before;
  };
  for (const Case& c : {
           Case{"a wake-up run", Bytes(24, 0xFF)},
           Case{"the echo of the request", LongFrame(5, 1, 0x72, Hex("01 02"))},
           Case{"two echoes",
                LongFrame(5, 1, 0x72, Hex("01 02")) + LongFrame(5, 1, 0x72, Hex("01 02"))},
           Case{"another sequence number", LongFrame(5, 2, 0x72, Hex("AA"))},
           Case{"another address", LongFrame(6, 1, 0x72, Hex("AA"))},
           Case{"frame starts", Hex("10 10 05 10 05 90 10 05 90 01 10 05 90 01 00 03 00")},
           Case{"a damaged reply", Hex("10 05 90 01 00 02 00 72 AA 00 00")},
       }) {
    INFO(std::string(c.name));
    Line line;
    line.port.received = c.before + reply;
    CHECK(line.Query() == 0x72);
    CHECK(line.reply->bytes[0] == 0xAA);
    CHECK(line.port.received.empty());
  }
}

TEST_CASE("a failed query reports each attempt, all with one sequence number") {
  Line line(k7::FrameMode::kLong, 2);
  CHECK(line.Query() == std::nullopt);
  CHECK(line.stream.messages ==
        std::vector<std::string>{"ir=0 / error read (0)", "i=1 count=2 / warning query",
                                 "ir=0 / error read (0)", "i=2 count=2 / warning query",
                                 "count=2 / error query"});
  line.port.answer = [](const Bytes&) { return LongFrame(5, 2, 0x72, {}); };
  CHECK(line.Query() == 0x72);
  REQUIRE(line.port.writes.size() == 3);
  CHECK(line.port.writes[0] == line.port.writes[1]);
  CHECK(line.port.writes[2][3] == 2);

  line.transport->Open(5, k7::FrameMode::kLong);
  line.port.answer = nullptr;
  line.Query();
  CHECK(line.port.writes[3][3] == 1);  // a new session starts from the beginning
}

TEST_CASE("the sequence number wraps") {
  Line line;
  for (int i = 1; i <= 257; ++i) {
    line.port.received = LongFrame(5, i & 0xFF, 0x72, {});
    REQUIRE(line.Query() == 0x72);
  }
  CHECK(line.port.writes.back()[3] == 1);
}

TEST_CASE("a frame with command 0 is no reply, nor is what follows it") {
  Line line;
  line.port.received = LongFrame(5, 1, 0x00, Hex("AA")) + LongFrame(5, 1, 0x72, {});
  CHECK(line.Query() == std::nullopt);
  CHECK(line.stream.Said("ir=21 / error read (0)"));
}

TEST_CASE("a flood without a frame ends when the buffer is full") {
  Line line;
  line.port.received = Bytes(70000, 0x10);
  CHECK(line.Query() == std::nullopt);
  CHECK(line.port.reads == 65535);
  CHECK(line.stream.messages.front() == "ir=65535 / error read full");
}

TEST_CASE("the longest reply fills the buffer to its last byte") {
  Line line;
  line.port.received = LongFrame(5, 1, 0x61, Bytes(65525, 0x49));
  CHECK(line.Query() == 0x61);
  CHECK(line.reply->length == 65526);
  CHECK(line.port.received.empty());
}

TEST_CASE("short frames: a reply without data is taken with the byte behind it") {
  Line line(k7::FrameMode::kShort);
  line.port.received = k7test::ShortFrame(5, 0x72, {}) + Hex("00");
  CHECK(line.Query() == 0x72);
  CHECK(line.reply->length == 0);
  CHECK(line.port.writes == std::vector<Bytes>{k7test::ShortFrame(5, 0x72, Hex("01 02"))});

  line.port.received = k7test::ShortFrame(5, 0x72, {});
  CHECK(line.Query() == std::nullopt);
  CHECK(line.stream.Said("ir=5 / error read (0)"));
}

TEST_CASE("a short search without an end waits for the host's stop and reads nothing more") {
  Line line(k7::FrameMode::kShort, 2);
  line.port.received = k7test::ShortFrame(5, 0x72, Hex("AA BB")) + Hex("00 00 00");
  support::clock::OnPause([&](unsigned) {
    if (support::clock::Pauses().size() == 20) line.driver.Stop();
  });
  CHECK(line.Query() == std::nullopt);
  CHECK(line.port.reads == 6);
  CHECK(support::clock::Pauses().size() == 20);  // every look at the stop is a pause apart
  CHECK(line.stream.messages == std::vector<std::string>{"i=1 count=2 / warning query"});
  support::clock::Reset();
}

TEST_CASE("waking up sends a run of FF and leaves the reply buffer clear") {
  Line line;
  line.reply->bytes.fill(0xEE);
  line.transport->WakeUp(*line.reply);
  CHECK(line.port.writes == std::vector<Bytes>{Bytes(24, 0xFF)});
  CHECK(line.port.readArguments == std::vector<std::string>{"300 ms, 0"});
  CHECK(support::clock::Pauses() == std::vector<unsigned>{100});
  CHECK(line.reply->bytes == k7::Reply{}.bytes);
}

TEST_CASE("a driver without a port fails its queries") {
  support::RecordingStream stream;
  TKSplDrv driver(static_cast<HostStream*>(&stream), nullptr);
  driver.stopRequest = 0;
  const auto transport = std::make_unique<k7::Transport>(driver);
  const auto reply = std::make_unique<k7::Reply>();
  transport->WakeUp(*reply);
  CHECK(transport->K7Query(0x72, {}, *reply) == std::nullopt);
}
