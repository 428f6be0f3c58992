// The continuous reading of the models with one and with two heat systems.
#include <doctest/doctest.h>

#include "common/cp1251.h"
#include "tests/older_models/simulated.h"

using namespace common::literals;
using support::Bytes;
using support::Instrument;
using support::Said;
using support::Section;
using support::SimulatedReading;

namespace {

// A batch of the hours 11 and 12, then cycles with the clock at this minute of hour 13. The host
// stops at the start of the last one.
struct Continuous : SimulatedReading {
  Continuous(simulator::Settings settings, int minute, int cycles)
      : SimulatedReading(At(settings, minute), "H") {
    Range({2016, 9, 0, 4, 11}, {2016, 9, 0, 4, 12});
    Parameter(16, 1);
    stream.onMessage = [this, cycles, seen = 0](const std::string& line) mutable {
      if (line != "reading... / Nonstop") return;
      if (++seen == 1) batch = Sections().size();
      if (seen == cycles) driver.Stop();
    };
  }

  static simulator::Settings& At(simulator::Settings& settings, int minute) {
    settings.clock = simulator::ClockTime{2016, 9, 4, 13, minute, 0};
    return settings;
  }

  // "O title, H title 13:00:00, ...": what was written behind the batch.
  std::string AfterBatch() const {
    std::string told;
    const auto sections = Sections();
    for (std::size_t i = batch; i < sections.size(); ++i) {
      const Section& section = sections[i];
      if (!told.empty()) told += ", ";
      told += section.kind + (" " + section.title);
      if (section.kind != 'O') told += section.Date(0, "DT").substr(10);
      CHECK(section.ended == (section.kind != 'O'));
      CHECK(section.rows.size() == 1);
    }
    return told;
  }

  std::size_t batch = 0;  // sections
};

}  // namespace

TEST_CASE("continuous cycles of every model") {
  const char* const one = "O ОВ, H Общий 13:00:00, D Общий 13:05:00, O ОВ, O ОВ"_w;
  const char* const two =
      "O , H ТВ2 13:00:00, D ТВ2 13:05:00, O , H ТВ2 13:00:00, D ТВ2 13:05:00, O , O , O , O "_w;
  const struct {
    const char* model;
    int minute;
    const char* written;
  } cases[] = {
      {"522", 4, "O , O , O , O , O , O "}, {"522", 5, two},
      {"523", 4, "O , O , O , O , O , O "}, {"523", 5, two},
      {"721", 4, "O ОВ, O ОВ, O ОВ"_w},     {"721", 5, one},
      {"521.1x", 4, "O ОВ, O ОВ, O ОВ"_w},  {"521.1x", 5, one},
  };
  for (const auto& c : cases) {
    CAPTURE(c.model);
    CAPTURE(c.minute);
    Continuous reading(Instrument(c.model), c.minute, 3);
    reading.Run();
    CHECK(reading.AfterBatch() == c.written);
    CHECK(reading.stream.CountOf("OK / ReadStop") == 0);
    CHECK(reading.stream.CountOf("Error / ReadStop") == 0);
    // A notice for the mode and for each section, none beside them.
    const auto sections = static_cast<int>(reading.Sections().size() - reading.batch);
    CHECK(reading.stream.CountOf(" /  / 1") == 1 + sections);
  }
}

TEST_CASE("continuous hours hold the values of their heat system") {
  Continuous reading(Instrument("523"), 5, 2);
  reading.Run();
  const auto hours = reading.Sections('H', "ТВ2"_w);
  REQUIRE(hours.size() == 3);  // one of the batch
  const auto stamp = simulator::ToMoment({2016, 9, 4, 13, 0, 0});
  for (int system = 1; system <= 2; ++system) {
    const auto row = reading.values.ArchiveRow(simulator::older::Archive::kHourly, system, stamp);
    CHECK(static_cast<float>(hours[static_cast<std::size_t>(system)].Number(0, "P1")) ==
          static_cast<float>(row.Value("P1")));
  }
  // Opened again without a word.
  CHECK(reading.stream.CountOf(Said("1", "Init Opros OK ТВ"_w)) == 1);
}

TEST_CASE("a heat system that is switched off or cannot be opened leaves the other alone") {
  const struct {
    const char* model;
    int idle, silent;
    const char* written;
    int failures;  // in the batch and in both cycles that the host did not stop
  } cases[] = {
      {"522", 1, 0, "O , H ТВ2 13:00:00, D ТВ2 13:05:00, O , O "_w, 0},
      {"523", 0, 1, "O , O , H ТВ2 13:00:00, D ТВ2 13:05:00, O , O , O , O "_w, 3},
  };
  for (const auto& c : cases) {
    CAPTURE(c.model);
    simulator::Settings settings = Instrument(c.model);
    settings.special.idleSystem = c.idle;
    settings.special.silentSystem = c.silent;
    Continuous reading(settings, 5, 3);
    reading.Run();
    CHECK(reading.AfterBatch() == c.written);
    CHECK(reading.stream.CountOf(Said("1", "Init Opros Error ТВ"_w)) == c.failures);
  }
}

TEST_CASE("a cycle whose reads fail is told, and the next one starts over") {
  const struct {
    std::uint8_t address, page;
    const char* message;
  } cases[] = {{243, 0, "12 / Dt"}, {0x00, 2, "12 / Tek"}, {0x80, 2, "12 / Tot"}};
  for (const auto& c : cases) {
    CAPTURE(c.message);
    Continuous reading(Instrument("721"), 4, 2);
    bool cycles = false;
    const auto whenCycle = reading.stream.onMessage;
    reading.stream.onMessage = [&](const std::string& line) {
      cycles = cycles || line == "reading... / Nonstop";
      whenCycle(line);
    };
    bool lost = false;
    reading.Lose([&](const Bytes& request) {
      if (!cycles || lost || request[2] != 'R') return false;
      lost = request[3] == c.address && request[4] == c.page;
      return lost;
    });
    reading.Run();
    CHECK(reading.stream.CountOf(c.message) == 1);
    CHECK(reading.AfterBatch() == "O ОВ"_w);
  }
}
