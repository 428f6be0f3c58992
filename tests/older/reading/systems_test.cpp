// Two heat systems: one that fails or is switched off leaves the other alone.
#include <doctest/doctest.h>

#include "common/cp1251.h"
#include "tests/older/simulated.h"

using namespace common::literals;
using support::Bytes;
using support::Instrument;
using support::SimulatedReading;

TEST_CASE("the batch needs the common part and one heat system") {
  const struct {
    std::uint8_t function, first, last;  // P1 of the requests that are lost
    const char* contents;
    const char* end;
  } cases[] = {{'E', 0, 0, "B ТВ1, B ТВ2"_w, "Error / ReadStop"},
               {'E', 0x10, 0x10, "B ОВ, B ТВ2"_w, "OK / ReadStop"},
               {'?', 1, 1, "B ОВ, B ТВ2"_w, "OK / ReadStop"},
               {'?', 2, 2, "B ОВ, B ТВ1"_w, "OK / ReadStop"},
               {'?', 1, 2, "B ОВ"_w, "Error / ReadStop"}};
  for (const auto& c : cases) {
    SimulatedReading reading(Instrument("523"), "B");
    reading.Lose([&](const Bytes& request) {
      return request[2] == c.function && request[3] >= c.first && request[3] <= c.last &&
             request[4] == 0;
    });
    reading.Run();
    CHECK(reading.Contents() == c.contents);
    CHECK(reading.stream.messages.rbegin()[1] == c.end);
    for (int system = c.first; c.function == '?' && system <= c.last; ++system) {
      CHECK(reading.stream.Said(std::to_string(system) + " / Init Opros Error ТВ"_w));
    }
  }
}

TEST_CASE("a heat system of mode c gives its database and nothing else") {
  for (const char* model : {"522", "523"}) {
    CAPTURE(model);
    simulator::Settings settings = Instrument(model);
    settings.special.idleSystem = 1;
    SimulatedReading reading(settings, "BTMSHE");
    reading.Run();
    CHECK(reading.stream.Said("99 / Regim1"));
    CHECK(reading.stream.Said("ТВ1 Код ввода 101 / Чтение нецелесообразно"_w));
    CHECK(reading.Contents().starts_with("B ОВ, B ТВ1, B ТВ2, O ТВ2, "_w));
    CHECK(reading.stream.Said("OK / ReadStop"));
  }
}

TEST_CASE("a stop that system 1 saw is answered, and system 2 is read") {
  SimulatedReading reading(Instrument("523"), "BTE");
  reading.stream.onMessage = [&](const std::string& line) {
    if (line == "Start Read ТВ1 / Oper"_w) reading.driver.Stop();
  };
  reading.Run();
  CHECK(reading.stream.CountOf("Error / ReadStop") == 1);
  CHECK(reading.Contents() == "B ОВ, B ТВ1, O ТВ1, B ТВ2, O ТВ2, S ТВ2 ИЗМ, S ТВ2 НС"_w);
  CHECK(reading.stream.Said("OK / ReadStop"));
}
