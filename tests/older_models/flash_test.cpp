// Databases and logs in flash: where the requests go, pages that fail, items that do not parse.
#include "older/reads/flash.h"

#include <doctest/doctest.h>

#include "common/cp1251.h"
#include "tests/older_models/simulated.h"
#include "tests/support/older_line.h"

using namespace common::literals;
using support::Bytes;
using support::Instrument;
using support::Section;
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
    const char* parameters;  // first page, pages
    int first, last;         // of the bytes delivered
  } cases[] = {{0x0400, 168, "10 00 03 00", 0, 20}, {0x0438, 72, "10 00 03 00", 7, 15}};
  for (const auto& c : cases) {
    support::Reading reading;
    reading.port.answer = [&](const Bytes&) { return pages; };
    older::TKSplImpl reader(reading.driver, {});
    older::FlashBuffer buffer;
    const auto [error, data] = older::ReadFlashBytes(reader, c.address, c.size, buffer);
    CHECK(error == older::ExchangeError::kNone);
    REQUIRE(data.size() == c.size);
    CHECK(support::ToHex(reading.port.writes.at(0)).substr(9, 11) == c.parameters);
    CHECK(data.front() == c.first);
    CHECK(data.back() == c.last);
  }
}

TEST_CASE("more flash than the instrument has is refused") {
  support::Reading reading;
  older::TKSplImpl reader(reading.driver, {});
  older::FlashBuffer buffer;
  CHECK(older::ReadFlashBytes(reader, 8, 10240, buffer).error == older::ExchangeError::kNoBuffer);
  CHECK(reading.stream.messages == std::vector<std::string>{"error len buffer_r / error"});
  CHECK(reading.port.writes.empty());
}

TEST_CASE("a page that fails with error 14 is zero, the rest of the database stands") {
  const struct {
    const char* model;
    int page;
    const char* title;
    const char* zero;  // a column on the page, and others
    const char* kept;
    const char* alsoKept;
  } cases[] = {
      {"522", 1, "ОВ"_w, "DR", "PI", "NT"},      {"522", 9, "ТВ1"_w, "tk1", "Px", "DW"},
      {"522", 16, "ТВ2"_w, "KW", "TC", "PM"},    {"523", 1, "ОВ"_w, "KI", "DR", "TC3"},
      {"523", 35, "ТВ2"_w, "Mk", "Gk3", "KW"},   {"523", 16, "ТВ1"_w, "tk1", "Pk1", "PM"},
      {"521.1x", 2, "ОВ"_w, "Gn3", "C2", "tk3"}, {"721", 0, "ОВ"_w, "PI", "rb", "ZD"},
  };
  for (const auto& c : cases) {
    CAPTURE(c.model);
    CAPTURE(c.page);
    simulator::Settings settings = Instrument(c.model);
    settings.special.failingPage = c.page;
    SimulatedReading reading(settings, "B");
    reading.Run();
    CHECK(reading.stream.messages.back().ends_with(" / Opros End"));
    CHECK(reading.stream.Said("OK / ReadStop"));
    const auto sections = reading.Sections('B', c.title);
    REQUIRE(sections.size() == 1);
    CHECK(sections[0].Number(0, c.zero) == 0);
    CHECK(sections[0].Number(0, c.kept) != 0);
    CHECK(sections[0].Number(0, c.alsoKept) != 0);
  }
}

TEST_CASE("an item that does not parse is zero and told once") {
  const struct {
    const char* model;
    const char* column;
    char type;
  } cases[] = {{"522", "KTh", 'f'}, {"522", "DL", 't'},   {"523", "YB", 'f'},
               {"523", "TMK", 't'}, {"721", "HR", 'L'},   {"721", "DSommer", 't'},
               {"522", "PI", 'S'},  {"521.1x", "KI", 'B'}};
  for (const auto& c : cases) {
    CAPTURE(c.model);
    CAPTURE(c.column);
    simulator::Settings settings = Instrument(c.model);
    settings.special.brokenParameter = c.column;
    SimulatedReading reading(settings, "B");
    reading.Parameter(1, 2);
    // The first read of the database fails: the message still comes once.
    int flashReads = 0;
    reading.Lose([&](const Bytes& request) { return request[2] == 'E' && ++flashReads == 1; });
    reading.Run();
    CHECK(reading.stream.CountOf("??.?? / Rasmernost") == 1);
    CHECK(reading.stream.Said("OK / ReadStop"));
    const auto sections = reading.Sections('B', "ОВ"_w);
    REQUIRE(sections.size() == 1);
    CHECK(sections[0].Column(c.column).type == c.type);
    const Bytes cell = sections[0].Cell(0, c.column);
    CHECK(cell == Bytes(cell.size(), 0));
  }
}

TEST_CASE("the session is reopened between two attempts of the instrument's own database") {
  const struct {
    const char* model;
    const char* name;       // of the request, in the messages
    const char* system;     // of a heat system's database
    const char* reopening;  // "Version" of the instrument
  } cases[] = {{"522", "Flash522", "Flash522", "V3 / Version"},
               {"523", "PoitkaReadBDOB", "PoitkaReadBDTB", "V7 / Version"},
               {"721", "PoitkaReadBDOB", nullptr, "V2 / Version"},
               {"521.1x", "PoitkaReadBDOB", nullptr, "V12 / Version"}};
  for (const auto& c : cases) {
    for (int fails = 1; fails <= 2; ++fails) {
      CAPTURE(c.model);
      CAPTURE(fails);
      SimulatedReading reading(Instrument(c.model));
      reading.Parameter(1, 2);
      int left = fails;
      reading.Lose([&](const Bytes& request) { return request[2] == 'E' && left-- > 0; });
      reading.Run();
      const std::string name = std::string(" / ") + c.name;
      CHECK(reading.stream.CountOf("1 Error: 12" + name) == 1);
      // Nothing follows the last attempt.
      CHECK(reading.stream.CountOf("2 Error: 12" + name) == fails - 1);
      CHECK(reading.stream.CountOf(c.reopening) == 2);
      CHECK(reading.stream.CountOf("2016.9.4 13:5:9 / DT") == 1);
      CHECK(reading.stream.CountOf("12 / BD") == fails - 1);
    }
    if (c.system == nullptr) continue;
    SimulatedReading reading(Instrument(c.model));
    reading.Parameter(1, 2);
    int flashReads = 0;
    reading.Lose([&](const Bytes& request) { return request[2] == 'E' && ++flashReads == 2; });
    reading.Run();
    CHECK(reading.stream.CountOf(std::string("1 Error: 12 / ") + c.system) == 1);
    CHECK(reading.stream.CountOf(c.reopening) == 1);
    CHECK(reading.stream.Said("OK / ReadStop"));
  }
}
