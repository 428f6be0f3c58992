// The change and situation logs.
#include <doctest/doctest.h>

#include "common/cp1251.h"
#include "older/models/logs.h"
#include "tests/older/simulated.h"

using namespace common::literals;
using support::Bytes;
using support::Instrument;
using support::SimulatedReading;
using support::operator+;

namespace {

Bytes Entry(const std::string& text, std::size_t size) {
  Bytes entry(text.begin(), text.end());
  entry.resize(size, 0xEE);
  return entry;
}

}  // namespace

TEST_CASE("logs that are empty, full, out of range, or not to be read whole") {
  const SYSTEMTIME early{2010, 1, 0, 1};
  const SYSTEMTIME late{2016, 9, 0, 4};
  const struct {
    const char* name;
    int entries;
    SYSTEMTIME to;
    int failingPage;       // from 64 on changes, two a page
    int lostPage;          // first page of a request without a reply
    const char* sections;  // titles and rows
    int failures;
  } cases[] = {
      {"empty", 0, late, 4, -1, "", 0},
      {"without an end mark", 100, late, 4, -1, "ОВ ИЗМ 100, ОВ НС 100, "_w, 0},
      {"no entry in range", 40, early, 4, -1, "ОВ ИЗМ 0, ОВ НС 0, "_w, 0},
      {"not to be read", 40, late, 4, 64, "ОВ НС 40, "_w, 1},
      {"ends where a page fails", 40, late, 67, -1, "ОВ ИЗМ 6, ОВ НС 40, "_w, 0},
  };
  for (const auto& c : cases) {
    CAPTURE(c.name);
    simulator::Settings settings = Instrument("721");
    settings.special.logEntries = c.entries;
    settings.special.failingPage = c.failingPage;
    SimulatedReading reading(settings, "E");
    reading.Parameter(1, 2);
    reading.Range(early, c.to);
    reading.Lose(
        [&](const Bytes& request) { return request[2] == 'E' && request[3] == c.lostPage; });
    reading.Run();
    CHECK(reading.stream.Said("OK / ReadStop"));
    CHECK(reading.stream.CountOf("2 Error: 12 / PoitkaReadIsm") == c.failures);
    std::string found;
    for (const auto& section : reading.Sections('S')) {
      CHECK(section.ended);
      found += section.title + ' ' + std::to_string(section.rows.size()) + ", ";
    }
    CHECK(found == c.sections);
  }
}

TEST_CASE("log entries become records up to the first zero or erased one") {
  const Bytes change = Entry("04.09.16/13:05:09\x8F\xE0 t=5 ", 32);
  std::span<const std::uint8_t> entries = change;
  Bytes record(22);
  REQUIRE(older::NextRecord(older::kChangeLog, entries, record));
  CHECK(support::ToHex(record) ==
        "E0 07 09 04 0D 05 09 CF F0 20 74 3D 35 20 FE FE FE FE FE FE FE FE");
  CHECK_FALSE(older::NextRecord(older::kChangeLog, entries, record));

  const Bytes entry = Entry("31-12-95 23:59:58\x07\x01", 24);
  const Bytes junk = Entry("no date at all...", 24);
  record.resize(9);
  for (const int end : {0x00, 0xFF}) {
    const Bytes log = entry + junk + entry + Bytes(24, static_cast<std::uint8_t>(end)) + entry;
    entries = log;
    int count = 0;
    while (older::NextRecord(older::kSituationLog, entries, record)) ++count;
    CHECK(count == 3);
    CHECK(support::ToHex(record) == "CB 07 0C 1F 17 3B 3A 07 01");
  }
}
