// Databases in flash: where the requests go, pages that fail, items that do not parse.
#include "older/reads/flash.h"

#include <doctest/doctest.h>

#include "common/cp1251.h"
#include "tests/older/simulated.h"
#include "tests/support/older_line.h"

using namespace common::literals;
using support::Bytes;
using support::Instrument;
using support::SimulatedReading;
using support::operator+;

TEST_CASE("flash by byte address: pages asked for and bytes taken") {
  Bytes pages;  // each byte the low byte of its address over 8
  for (std::size_t page = 0; page < 3; ++page) {
    Bytes data;
    for (std::size_t i = 0; i < 64; ++i) {
      data.push_back(static_cast<std::uint8_t>((page * 64 + i) / 8));
    }
    pages = pages + support::older::Reply('E', data);
  }
  const struct {
    std::uint16_t address;
    std::size_t size;
    const char* parameters;  // first page, pages; none: refused
    int first, last;         // of the bytes delivered
  } cases[] = {{0x0400, 168, "10 00 03 00", 0, 20},
               {0x0438, 72, "10 00 03 00", 7, 15},
               {0x0000, 64, "00 00 01 00", 0, 7},
               {0x4008, 64, "00 01 02 00", 1, 8},
               {0x0008, 10176, "", 0, 0}};
  for (const auto& c : cases) {
    support::Reading reading;
    reading.port.answer = [&](const Bytes&) { return pages; };
    older::TKSplImpl reader(reading.driver, {});
    older::FlashBuffer buffer;
    const auto [error, data] = older::ReadFlashBytes(reader, c.address, c.size, buffer);
    if (*c.parameters == '\0') {
      CHECK(error == older::ExchangeError::kNoBuffer);
      CHECK(reading.stream.messages == std::vector<std::string>{"error len buffer_r / error"});
      CHECK(reading.port.writes.empty());
      continue;
    }
    CHECK(error == older::ExchangeError::kNone);
    CHECK(support::ToHex(reading.port.writes.at(0)).substr(9, 11) == c.parameters);
    REQUIRE(data.size() == c.size);
    CHECK(data.front() == c.first);
    CHECK(data.back() == c.last);
  }
}

TEST_CASE("an item that does not parse is zero and told once") {
  for (const auto& [model, column] :
       {std::pair{"522", "KTh"}, {"523", "TMK"}, {"721", "DSommer"}}) {
    CAPTURE(model);
    simulator::Settings settings = Instrument(model);
    settings.special.brokenParameter = column;
    SimulatedReading reading(settings, "B");
    reading.Parameter(1, 2);
    // The first read of the database fails: the message still comes once.
    int flashReads = 0;
    reading.Lose([&](const Bytes& request) { return request[2] == 'E' && ++flashReads == 1; });
    reading.Run();
    CHECK(reading.stream.CountOf("??.?? / Rasmernost") == 1);
    CHECK(reading.stream.Said("OK / ReadStop"));
    const Bytes cell = reading.Sections('B', "ОВ"_w).at(0).Cell(0, column);
    CHECK(cell == Bytes(cell.size(), 0));
  }
}

TEST_CASE("the session is reopened between two attempts of the instrument's own database") {
  const struct {
    const char* model;
    const char* reopening;  // "Version" of the instrument
    int from, fails;        // reads of flash that get no reply
    int versions;           // told, the first one included
    std::vector<std::string> told;
  } cases[] = {
      {"522", "V3 / Version", 1, 1, 2, {"1 Error: 12 / Flash522", "2016.9.4 13:5:9 / DT"}},
      // Nothing follows the last attempt.
      {"523", "V7 / Version", 1, 2, 2, {"2 Error: 12 / PoitkaReadBDOB", "12 / BD"}},
      {"721", "V2 / Version", 1, 1, 2, {"1 Error: 12 / PoitkaReadBDOB"}},
      {"521.1x", "V12 / Version", 1, 1, 2, {"1 Error: 12 / PoitkaReadBDOB"}},
      // A heat system's has a session that stays.
      {"522", "V3 / Version", 2, 1, 1, {"1 Error: 12 / Flash522"}},
      {"523", "V7 / Version", 2, 1, 1, {"1 Error: 12 / PoitkaReadBDTB"}},
  };
  for (const auto& c : cases) {
    CAPTURE(c.model);
    SimulatedReading reading(Instrument(c.model));
    reading.Parameter(1, 2);
    int flashReads = 0;
    reading.Lose([&](const Bytes& request) {
      return request[2] == 'E' && ++flashReads >= c.from && flashReads < c.from + c.fails;
    });
    reading.Run();
    CHECK(reading.stream.CountOf(c.reopening) == c.versions);
    for (const std::string& message : c.told) CHECK(reading.stream.CountOf(message) == 1);
  }
}
