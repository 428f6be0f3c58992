// Two heat systems: one that fails or is switched off leaves the other alone.
#include <doctest/doctest.h>

#include "common/cp1251.h"
#include "tests/older/simulated.h"

using namespace common::literals;
using support::Bytes;
using support::Instrument;
using support::SimulatedReading;

TEST_CASE("a heat system that cannot be opened fails alone") {
  for (const char* model : {"522", "523"}) {
    for (const int silent : {1, 2}) {
      CAPTURE(model);
      CAPTURE(silent);
      simulator::Settings settings = Instrument(model);
      settings.special.silentSystem = silent;
      SimulatedReading reading(settings, "BT");
      reading.Run();
      const auto number = std::to_string(silent);
      CHECK(reading.stream.Said("1 / PopitkaInit"));
      CHECK(reading.stream.Said(number + " / Init Opros Error ТВ"_w));
      CHECK(!reading.stream.Said(number + " / Init Opros OK ТВ"_w));
      CHECK(reading.Contents() == (silent == 1 ? "B ОВ, B ТВ2, O ТВ2"_w : "B ОВ, B ТВ1, O ТВ1"_w));
      CHECK(reading.stream.Said("OK / ReadStop"));
    }
  }
}

TEST_CASE("the batch needs the common part and one heat system") {
  const struct {
    std::uint8_t function, p1;  // of the requests that are lost
    const char* contents;
  } cases[] = {{'E', 0, "B ТВ1, B ТВ2"_w}, {'E', 0x10, "B ОВ, B ТВ2"_w}, {'?', 2, "B ОВ, B ТВ1"_w}};
  for (const auto& c : cases) {
    SimulatedReading reading(Instrument("523"), "B");
    reading.Lose([&](const Bytes& request) {
      return request[2] == c.function && request[3] == c.p1 && request[4] == 0;
    });
    reading.Run();
    CHECK(reading.Contents() == c.contents);
    CHECK(reading.stream.Said(c.p1 == 0 ? "Error / ReadStop" : "OK / ReadStop"));
  }
  SimulatedReading neither(Instrument("523"), "B");
  neither.Lose([](const Bytes& request) { return request[2] == '?' && request[3] != 0; });
  neither.Run();
  CHECK(neither.Contents() == "B ОВ"_w);
  CHECK(neither.stream.Said("Error / ReadStop"));
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
