// Two heat systems: one that fails or is switched off leaves the other alone.
#include <doctest/doctest.h>

#include "common/cp1251.h"
#include "tests/older_models/simulated.h"

using namespace common::literals;
using support::Bytes;
using support::Instrument;
using support::Said;
using support::SimulatedReading;

namespace {

// Kinds and titles: "B ОВ, B ТВ1, ...".
std::string Contents(const SimulatedReading& reading) {
  std::string contents;
  for (const auto& section : reading.Sections()) {
    if (!contents.empty()) contents += ", ";
    contents += section.kind + (" " + section.title);
  }
  return contents;
}

}  // namespace

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
      CHECK(reading.stream.Said(Said(number.c_str(), "Init Opros Error ТВ"_w)));
      CHECK(reading.stream.Said("1 / PopitkaInit"));
      CHECK(!reading.stream.Said(Said(number.c_str(), "Init Opros OK ТВ"_w)));
      CHECK(Contents(reading) == (silent == 1 ? "B ОВ, B ТВ2, O ТВ2"_w : "B ОВ, B ТВ1, O ТВ1"_w));
      CHECK(reading.stream.Said("OK / ReadStop"));
    }
  }
}

TEST_CASE("the batch needs the common part and one heat system") {
  const auto flashPage = [](int page) {
    return [page](const Bytes& request) {
      return request[2] == 'E' && request[3] == static_cast<std::uint8_t>(page);
    };
  };
  SimulatedReading general(Instrument("523"), "B");
  general.Lose(flashPage(0));
  general.Run();
  CHECK(Contents(general) == "B ТВ1, B ТВ2"_w);
  CHECK(general.stream.Said("Error / ReadStop"));

  SimulatedReading systems(Instrument("523"), "B");
  systems.Lose([](const Bytes& request) { return request[2] == '?' && request[3] != 0; });
  systems.Run();
  CHECK(Contents(systems) == "B ОВ"_w);
  CHECK(systems.stream.Said("Error / ReadStop"));
}

TEST_CASE("a heat system of mode c gives its database and nothing else") {
  for (const char* model : {"522", "523"}) {
    CAPTURE(model);
    simulator::Settings settings = Instrument(model);
    settings.special.idleSystem = 1;
    SimulatedReading reading(settings, "BTMSHE");
    reading.Run();
    CHECK(reading.stream.Said("99 / Regim1"));
    CHECK(reading.stream.Said(Said("ТВ1 Код ввода 101"_w, "Чтение нецелесообразно"_w)));
    CHECK(Contents(reading).starts_with("B ОВ, B ТВ1, B ТВ2, O ТВ2, "_w));
    CHECK(reading.stream.Said("OK / ReadStop"));
  }
}

TEST_CASE("a stop that system 1 saw is answered, and system 2 is read") {
  SimulatedReading reading(Instrument("523"), "BTE");
  reading.stream.onMessage = [&](const std::string& line) {
    if (line == Said("Start Read ТВ1"_w, "Oper")) reading.driver.Stop();
  };
  reading.Run();
  CHECK(reading.stream.CountOf("Error / ReadStop") == 1);
  CHECK(Contents(reading).starts_with("B ОВ, B ТВ1, O ТВ1, B ТВ2, O ТВ2"_w));
  CHECK(reading.Sections('S', "ТВ1 ИЗМ"_w).empty());
  CHECK(reading.stream.Said("OK / ReadStop"));
}

TEST_CASE("a host that refuses a write is asked for nothing more") {
  for (const char* model : {"523", "721"}) {
    CAPTURE(model);
    SimulatedReading whole(Instrument(model), "BTMSE");
    whole.Run();
    for (int refused = 0; refused < whole.stream.writeCalls; refused += 7) {
      CAPTURE(refused);
      SimulatedReading reading(Instrument(model), "BTMSE");
      reading.stream.refuseWriteAt = refused;
      std::size_t asked = 0;
      reading.port.onRead = [&] {
        if (reading.stream.writeCalls <= refused) asked = reading.port.writes.size();
      };
      reading.Run();
      CHECK(reading.stream.writeCalls == refused + 1);
      CHECK(reading.port.writes.size() == asked);
      CHECK(reading.stream.CountOf("Error / ReadStop") == 1);
    }
  }
}
