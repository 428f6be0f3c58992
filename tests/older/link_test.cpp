// Frames and single exchanges.
#include "older/link/link.h"

#include <doctest/doctest.h>

#include <cstring>

#include "older/reads/archive.h"
#include "tests/support/older_line.h"
#include "tests/support/reading.h"

using support::Bytes;
using support::Hex;
using support::operator+;
using older::ExchangeError;
using support::older::ErrorReply;
using support::older::Reply;

namespace {

const Bytes kThree = {0x31, 0x32, 0x33};

}  // namespace

TEST_CASE("requests as they go out") {
  const SYSTEMTIME date{2016, 9, 0, 4, 13};
  struct Case {
    const char* name;
    older::Request request;
    const char* frame;
  };
  const Case cases[] = {
      {"identify", {older::Function::kIdentify, {2}}, "10 01 3F 02 00 00 00 BD 16"},
      {"memory", older::MemoryRequest(0x0100, 16), "10 01 52 00 01 10 00 9B 16"},
      {"flash", older::FlashRequest(0x0140, 2), "10 01 45 40 01 02 00 76 16"},
      {"hour", older::ArchiveRequest(older::Function::kHourly, date), "10 01 48 74 09 04 0D 28 16"},
      {"day", older::ArchiveRequest(older::Function::kDaily, date), "10 01 59 74 09 04 00 24 16"},
      {"month", older::ArchiveRequest(older::Function::kMonthly, date),
       "10 01 4D 74 09 00 00 34 16"},
  };
  for (const Case& c : cases) {
    CAPTURE(c.name);
    const auto frame = older::BuildRequest(1, c.request);
    CHECK(support::ToHex({frame.begin(), frame.end()}) == c.frame);
  }
}

TEST_CASE("what a reply comes to") {
  struct Case {
    const char* name;
    Bytes reply;
    ExchangeError error;
  };
  Bytes otherHeader = Reply('R', kThree);
  otherHeader[0] = 0x99;  // a start byte, a number and an echo that nobody sent, and a checksum for
  otherHeader[1] = 0x02;  // them: 1 and 'R' became 2 and 'Q'
  otherHeader[2] = 'Q';
  Bytes otherEnd = Reply('R', kThree);
  otherEnd.back() = 0;
  Bytes flipped = Reply('R', kThree);
  flipped[4] ^= 4;
  const Case cases[] = {
      {"good", Reply('R', kThree), ExchangeError::kNone},
      {"another header", otherHeader, ExchangeError::kNone},
      {"another end byte", otherEnd, ExchangeError::kNone},
      {"nothing", {}, ExchangeError::kNoHeader},
      {"two bytes", Hex("10 01"), ExchangeError::kNoHeader},
      {"header alone", Hex("10 01 52"), ExchangeError::kNoData},
      {"data cut", Hex("10 01 52 31 32"), ExchangeError::kNoData},
      {"no end", Hex("10 01 52 31 32 33"), ExchangeError::kNoEnd},
      {"half an end", Hex("10 01 52 31 32 33 16"), ExchangeError::kNoEnd},
      {"flipped bit", flipped, ExchangeError::kChecksum},
      {"error reply alone", Hex("10 01 21"), ExchangeError::kNoErrorCode},
      {"error reply cut", Hex("10 01 21 03 AA"), ExchangeError::kNoErrorEnd},
      {"error code 0", ErrorReply(0), ExchangeError::kReply0},
      {"error code 1", ErrorReply(1), ExchangeError::kReply1},
      {"error code 2", ErrorReply(2), ExchangeError::kReply2},
      {"error code 3, its checksum wrong", Hex("10 01 21 03 00 00"), ExchangeError::kReply3},
      {"error code 7", ErrorReply(7), ExchangeError::kReplyOther},
  };
  for (const Case& c : cases) {
    CAPTURE(c.name);
    support::Reading reading;
    older::Link link(reading.driver);
    reading.port.received = c.reply;
    std::array<std::uint8_t, 3> data{};
    CHECK(link.ReadReply(data) == c.error);
    if (c.error == ExchangeError::kNone) CHECK(Bytes(data.begin(), data.end()) == kThree);
  }
}

TEST_CASE("a request that is not written whole is not waited for") {
  support::Reading reading;
  older::Link link(reading.driver);
  reading.port.shortWrites = 1;
  std::array<std::uint8_t, 3> data{};
  CHECK(link.ReadMemory(0, data) == ExchangeError::kWrite);
  CHECK(reading.port.reads == 0);
  CHECK(reading.port.setUp == std::vector<std::string>{"Control 3"});
}

TEST_CASE("the wake-up burst") {
  support::Reading reading;
  older::Link link(reading.driver);
  link.WakeUp();
  CHECK(reading.port.writes == std::vector<Bytes>(16, Hex("FF")));
  CHECK(reading.port.readArguments == std::vector<std::string>{"500 ms, 0"});
  std::vector<unsigned> pauses(16, 5);
  pauses.push_back(1000);
  CHECK(support::clock::Pauses() == pauses);

  reading.port.shortWrites = 1;  // the line takes none: no further byte, and no failure
  link.WakeUp();
  CHECK(reading.port.writes.size() == 17);
}

TEST_CASE("a flash read passes over a page that ends in error 14") {
  const Bytes page(64, 0x5A);
  const Bytes cut = Hex("10 01 21 00");  // an error reply without its end
  struct Case {
    const char* name;
    Bytes second;
    ExchangeError error;
  };
  for (const Case& c : {Case{"error 14", cut, ExchangeError::kNone},
                        Case{"error reply", ErrorReply(1), ExchangeError::kReply1}}) {
    CAPTURE(c.name);
    support::Reading reading;
    older::Link link(reading.driver);
    // After a reply that is cut the line is silent before the next one.
    reading.port.answer = [&](const Bytes&) {
      reading.port.later = {Reply('E', page)};
      return Reply('E', page) + c.second;
    };
    std::array<std::uint8_t, 192> pages{};
    pages.fill(7);
    CHECK(link.ReadFlash(8, pages) == c.error);
    if (c.error != ExchangeError::kNone) continue;
    CHECK(Bytes(pages.begin(), pages.end()) == page + Bytes(64) + page);
  }
}

TEST_CASE("instrument floats") {
  struct Case {
    const char* wire;
    float value;
  };
  for (const Case& c : {Case{"00 00 80 81", -4.0F}, Case{"00 00 00 7F", 1.0F},
                        Case{"00 00 00 00", 0.0F}, Case{"00 00 48 85", 100.0F}}) {
    Bytes bytes = Hex(c.wire);
    older::ConvertFloat(std::span(bytes).first<4>());
    float value = 0;
    std::memcpy(&value, bytes.data(), sizeof value);
    CHECK(value == c.value);
    CHECK(support::older::Float(c.value) == Hex(c.wire));
  }
}
