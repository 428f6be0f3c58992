// Single frames: what each stretch of bytes is called, and why.
#include <doctest/doctest.h>

#include <algorithm>

#include "host/frames/feed.h"
#include "tests/support/hex.h"

using host::frames::Direction;
using host::frames::Explainer;
using host::frames::Frame;
using host::frames::FrameClass;
using host::frames::Protocol;
using support::Bytes;
using support::Hex;

namespace {

// "request: ask clock | wrong checksum: ...".
std::string TextOf(const std::vector<Frame>& frames) {
  std::string text;
  for (const Frame& frame : frames) {
    text += (text.empty() ? "" : " | ") + std::string(NameOf(frame.kind)) + ": " + frame.summary;
  }
  return text;
}

std::string MeaningIn(const Frame& frame, const std::string& name) {
  for (const auto& label : frame.labels) {
    if (label.name == name) return label.meaning;
  }
  return "no such label";
}

}  // namespace

TEST_CASE("a reply is judged by the request before it") {
  const char* const kAskClock = "10 01 52 F3 00 06 00 B3 16";
  struct Case {
    const char* name;
    const char* model;
    const char* sent;
    const char* received;
    std::string text;
  };
  const Case cases[] = {
      {"right", "522", kAskClock, "10 01 52 10 09 04 0D 05 09 74 16",
       "reply: reply 6 bytes, checksum right: clock"},
      {"start byte", "522", kAskClock, "11 01 52 10 09 04 0D 05 09 74 16",
       "reply: reply 6 bytes, checksum right: clock"},
      {"wrong", "522", kAskClock, "10 01 52 10 09 04 0D 05 08 74 16",
       "wrong checksum: reply 6 bytes, checksum wrong: clock"},
      {"foreign", "522", kAskClock, "10 02 52 10 09 04 0D 05 09 73 16",
       "foreign: of number 2, 1 was asked: reply 6 bytes, checksum right: clock"},
      {"cut", "522", kAskClock, "10 01 52 10 09",
       "cut short: cut short: 5 of 11 bytes, looks like a reply of the older protocol"},
      {"echo and reply", "522", kAskClock,
       "10 01 52 F3 00 06 00 B3 16 10 01 52 10 09 04 0D 05 09 74 16",
       "echo: echo of the request: ask clock | reply: reply 6 bytes, checksum right: clock"},
      {"noise and reply", "522", kAskClock, "A0 00 10 01 52 10 09 04 0D 05 09 74 16",
       "noise: 2 bytes that are no frame: no start byte 0x10 | reply: reply 6 bytes, checksum "
       "right: clock"},
      {"of an earlier request", "522", kAskClock, "10 01 3F 54 2A 05 3C 16",
       "late: to another request: reply 3 bytes, checksum right: identification"},
      {"no record", "523", "10 01 48 74 03 01 05 39 16", "10 01 21 03 DA 16",
       "error reply: error reply 3: there is no such record, error 23 of the driver"},
      {"refused", "521", "10 01 48 74 03 01 05 39 16", "10 01 21 03 DA 16",
       "error reply: error reply 3: the request is refused, error 23 of the driver"},
      {"error reply cut short", "523", "10 01 48 74 03 01 05 39 16", "10 01 21 03",
       "cut short: cut short: 4 of 6 bytes, looks like an error reply of the older protocol"},
  };
  for (const Case& item : cases) {
    INFO(item.name);
    Explainer explainer(Protocol::kUnknown, item.model);
    explainer.Explain(Hex(item.sent), Direction::kSent);
    CHECK(TextOf(explainer.Explain(Hex(item.received), Direction::kReceived)) == item.text);
  }
}

TEST_CASE("bytes of no known direction tell what they are") {
  struct Case {
    const char* bytes;
    std::string text;
  };
  const Case cases[] = {
      {"FF FF FF 10 01 3F 00 00 00 00 BF 16",
       "wake-up: wake up, 3 bytes 0xFF | request: ask identification"},
      {"10 01 48 74 03 01 05 39 16", "request: ask hour 2016-03-01 05:00"},
      {"10 01 59 74 03 01 00 2D 16 10 01 4D 74 03 00 00 3A 16",
       "request: ask day 2016-03-01 | request: ask month 2016-03"},
      {"10 01 52 F3 00 06 00 00 16", "wrong checksum: ask memory 0x00F3, 6 bytes, checksum wrong"},
      {"00 01 02", "noise: 3 bytes that are no frame: no start byte 0x10"},
  };
  for (const Case& item : cases) {
    INFO(item.bytes);
    CHECK(TextOf(Explainer().Explain(Hex(item.bytes))) == item.text);
  }
}

TEST_CASE("values and checksums stand beside their bytes") {
  Explainer explainer(Protocol::kUnknown, "522");
  explainer.Explain(Hex("10 01 52 F3 00 06 00 B3 16"), Direction::kSent);
  const auto wrong =
      explainer.Explain(Hex("10 01 52 10 09 04 0D 05 08 74 16"), Direction::kReceived);
  REQUIRE(wrong.size() == 1);
  CHECK(MeaningIn(wrong[0], "clock") == "2016-09-04 13:05:08");
  CHECK(MeaningIn(wrong[0], "checksum") == "wrong, should be 0x75");
}

// What a flipped bit leaves right is what the driver does not look at: the first and the last byte.
TEST_CASE("no flipped bit passes for a good reply") {
  const Bytes request = Hex("10 01 52 F3 00 06 00 B3 16");
  const Bytes reply = Hex("10 01 52 10 09 04 0D 05 09 74 16");
  for (std::size_t bit = 0; bit < reply.size() * 8; ++bit) {
    Bytes damaged = reply;
    damaged[bit / 8] ^= static_cast<std::uint8_t>(1U << bit % 8);
    Explainer explainer(Protocol::kOlder, "522");
    explainer.Explain(request, Direction::kSent);
    const auto frames = explainer.Explain(damaged, Direction::kReceived);
    const bool good = std::any_of(frames.begin(), frames.end(), [](const Frame& frame) {
      return frame.kind == FrameClass::kReply;
    });
    INFO(bit);
    CHECK(good == (bit < 8 || bit >= 80));
  }
}

TEST_CASE("a reply behind noise is seen whole though the driver did not read its end") {
  std::string text;
  host::frames::FrameFeed feed(
      [&](const Frame& frame, host::ByteView, long long) { text += TextOf({frame}) + "; "; },
      Explainer(Protocol::kOlder, "522"));
  feed.Send(Hex("10 01 52 F3 00 06 00 B3 16"), 0);
  const Bytes came = Hex("A0 00 10 01 52 10 09 04 0D 05 09 74 16");
  const host::ByteView view(came);
  feed.Receive(view.first(3), 10);
  feed.Receive(view.subspan(3, 8), 20);
  feed.Drop(view.subspan(11), 500);
  feed.Finish();
  CHECK(text ==
        "request: ask clock; noise: 2 bytes that are no frame: no start byte 0x10; late: not read "
        "to its end: reply 6 bytes, checksum right: clock; ");
}
