#include "older/models/logs.h"

#include <doctest/doctest.h>

#include "common/cp1251.h"
#include "simulator/moment.h"
#include "tests/older_models/simulated.h"

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

// A range of whole hours around an instrument's log entry.
SYSTEMTIME HourOf(const simulator::older::LogEntry& entry) {
  const auto part = [](int value) { return static_cast<unsigned short>(value); };
  return {part(entry.time.year),
          part(entry.time.month),
          0,
          part(entry.time.day),
          part(entry.time.hour),
          0,
          0,
          0};
}

}  // namespace

TEST_CASE("log sections hold the entries of the requested hours") {
  for (const char* model : {"523", "721", "521.1x"}) {
    for (const int count : {0, 40, 100}) {
      CAPTURE(model);
      CAPTURE(count);
      simulator::Settings settings = Instrument(model);
      settings.special.logEntries = count;
      SimulatedReading reading(settings, "E");
      const auto entries = reading.values.Log(1, simulator::ToMoment(support::kTestTime));
      const std::size_t first = entries.size() / 4;
      const std::size_t last = entries.size() / 2;
      if (count > 0) reading.Range(HourOf(entries[first]), HourOf(entries[last]));
      reading.Run();
      CHECK(reading.stream.Said("OK / ReadStop"));
      const bool systems = std::string(model) == "523";
      for (const char* title :
           {systems ? "ТВ1 ИЗМ"_w : "ОВ ИЗМ"_w, systems ? "ТВ1 НС"_w : "ОВ НС"_w}) {
        const auto sections = reading.Sections('S', title);
        REQUIRE(sections.size() == (count > 0 ? 1 : 0));
        if (count == 0) continue;
        CHECK(sections[0].ended);
        REQUIRE(sections[0].rows.size() == last - first + 1);
        CHECK(sections[0].Date(0, "DT") != sections[0].Date(1, "DT"));
      }
    }
  }
}

TEST_CASE("a log whose entries are all out of range leaves an empty section") {
  SimulatedReading reading(Instrument("721"), "e");
  reading.Range({2010, 1, 0, 1}, {2010, 1, 0, 2});
  reading.Run();
  const auto sections = reading.Sections('S');
  REQUIRE(sections.size() == 2);
  for (const auto& section : sections) {
    CHECK(section.announced == static_cast<int>(section.columns.size()));
    CHECK(section.rows.empty());
    CHECK(section.ended);
  }
}

TEST_CASE("a log that cannot be read counts as one without entries") {
  SimulatedReading reading(Instrument("521.1x"), "E");
  reading.Parameter(1, 2);
  reading.Range({2014, 1, 0, 1}, {2016, 9, 0, 4});
  const auto changes = [](const Bytes& request) { return request[2] == 'E' && request[3] == 0x40; };
  reading.Lose(changes);
  reading.Run();
  CHECK(reading.stream.Said("1 Error: 12 / PoitkaReadIsm"));
  CHECK(reading.stream.Said("2 Error: 12 / PoitkaReadIsm"));
  CHECK(reading.Sections('S', "ОВ ИЗМ"_w).empty());
  REQUIRE(reading.Sections('S', "ОВ НС"_w).size() == 1);
  CHECK(reading.Sections('S', "ОВ НС"_w)[0].rows.size() == 40);
  CHECK(reading.stream.Said("OK / ReadStop"));
}

TEST_CASE("a page of a log that fails with error 14 ends the log there") {
  simulator::Settings settings = Instrument("721");
  settings.special.failingPage = 64 + 3;  // two change entries a page
  SimulatedReading reading(settings, "E");
  reading.Range({2014, 1, 0, 1}, {2016, 9, 0, 4});
  reading.Run();
  REQUIRE(reading.Sections('S', "ОВ ИЗМ"_w).size() == 1);
  CHECK(reading.Sections('S', "ОВ ИЗМ"_w)[0].rows.size() == 6);
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
