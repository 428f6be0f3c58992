// Frames and single exchanges.
#include "older/link/link.h"

#include <doctest/doctest.h>

#include <cstring>

#include "tests/support/older_line.h"
#include "tests/support/reading.h"

using older::ExchangeError;
using support::Bytes;
using support::Hex;
using support::operator+;
using support::older::ErrorReply;
using support::older::Reply;

TEST_CASE("what a reply comes to") {
  const struct {
    const char* name;
    const char* reply;  // to a request of three bytes; 16 is their checksum, too
    int error;
  } cases[] = {
      {"good", "10 01 52 31 32 33 16 16", 0},
      {"a start byte, a number and an echo that nobody sent", "99 02 51 31 32 33 16 16", 0},
      {"another end byte", "10 01 52 31 32 33 16 00", 0},
      {"nothing", "", 12},
      {"two bytes", "10 01", 12},
      {"header alone", "10 01 52", 15},
      {"data cut", "10 01 52 31 32", 15},
      {"no end", "10 01 52 31 32 33", 16},
      {"half an end", "10 01 52 31 32 33 16", 16},
      {"flipped bit", "10 01 52 31 36 33 16 16", 17},
      {"error reply alone", "10 01 21", 13},
      {"error reply cut", "10 01 21 03 AA", 14},
      {"error code 0, its checksum wrong", "10 01 21 00 00 00", 20},
      {"error code 1", "10 01 21 01 00 00", 21},
      {"error code 2", "10 01 21 02 00 00", 22},
      {"error code 3", "10 01 21 03 00 00", 23},
      {"error code 4", "10 01 21 04 00 00", 24},
  };
  for (const auto& c : cases) {
    CAPTURE(c.name);
    support::Reading reading;
    older::Link link(reading.driver);
    reading.port.received = Hex(c.reply);
    std::array<std::uint8_t, 3> data{};
    CHECK(static_cast<int>(link.ReadReply(data)) == c.error);
    CHECK(link.TakeAnswered() == (c.error == 0));
    CHECK_FALSE(link.TakeAnswered());
    if (c.error == 0) CHECK(support::ToHex({data.begin(), data.end()}) == "31 32 33");
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

TEST_CASE("a reply that does not fit the buffer is refused") {
  support::Reading reading;
  older::Link link(reading.driver);
  std::vector<std::uint8_t> data(1020);
  CHECK(link.ReadReply(data) == ExchangeError::kNoBuffer);
  CHECK(reading.stream.messages == std::vector<std::string>{"error len buffer_rnb / error"});
  CHECK(link.ReadReply(std::span(data).first(1019)) == ExchangeError::kNoHeader);
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
  const struct {
    Bytes second;
    ExchangeError error;
  } cases[] = {{Hex("10 01 21 00"), ExchangeError::kNone}, {ErrorReply(1), ExchangeError::kReply1}};
  for (const auto& c : cases) {
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
  for (const auto& [wire, value] :
       {std::pair{"00 00 80 81", -4.0F}, {"00 00 00 7F", 1.0F}, {"00 00 48 85", 100.0F}}) {
    Bytes bytes = Hex(wire);
    older::ConvertFloat(std::span(bytes).first<4>());
    float converted = 0;
    std::memcpy(&converted, bytes.data(), sizeof converted);
    CHECK(converted == value);
  }
}
