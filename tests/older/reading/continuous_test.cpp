// The continuous reading.
#include <doctest/doctest.h>

#include <algorithm>

#include "common/cp1251.h"
#include "tests/older/simulated.h"
#include "tests/support/older_line.h"

using namespace common::literals;
using support::Bytes;
using support::Instrument;
using support::SimulatedReading;

namespace {

simulator::Settings At(simulator::Settings settings, int hour, int minute) {
  settings.clock = simulator::ClockTime{2016, 9, 4, hour, minute, 7};
  return settings;
}

// A batch of the hours 11 and 12, then cycles. The host stops when the last one begins.
struct Continuous : SimulatedReading {
  Continuous(const simulator::Settings& settings, int cycles, const std::string& groups = "H")
      : SimulatedReading(settings, groups) {
    Range({2016, 9, 0, 4, 11}, {2016, 9, 0, 4, 12});
    Parameter(16, 1);
    stream.onMessage = [this, cycles](const std::string& line) {
      if (line == " /  / 1" && cycle == 0) batch = Sections().size();
      if (line == "reading... / Nonstop" && ++cycle == cycles) driver.Stop();
    };
  }
  std::string AfterBatch() const { return Contents(batch, true); }

  std::size_t batch = 0;  // sections
  int cycle = 0;          // begun
};

}  // namespace

TEST_CASE("continuous cycles of every model") {
  const char* const one = "O ОВ, H Общий 13:00:00, D Общий 13:05:07, O ОВ, O ОВ"_w;
  const char* const two =
      "O , H ТВ2 13:00:00, D ТВ2 13:05:07, O , H ТВ2 13:00:00, D ТВ2 13:05:07, O , O , O , O "_w;
  const struct {
    const char* model;
    int hour, minute;
    const char* groups;
    const char* written;
  } cases[] = {
      {"521", 13, 4, "H", "O ОВ, O ОВ, O ОВ"_w},
      // The batch ended with hour 12: hour 13 is next, and day 4, which the batch did not read,
      // starts at the clock.
      {"521", 13, 5, "H", "O ОВ, H  13:00:00, D  13:05:07, O ОВ, O ОВ"_w},
      // Two hours behind: one a cycle, and days with them.
      {"521", 14, 30, "HS", "O ОВ, H  13:00:00, D  11:00:00, O ОВ, H  14:00:00, O ОВ"_w},
      {"521", 13, 6, "T", "O ОВ, H  13:06:07, D  13:06:07, O ОВ, O ОВ"_w},
      {"522", 13, 4, "H", "O , O , O , O , O , O "},
      {"522", 13, 5, "H", two},
      {"523", 13, 4, "H", "O , O , O , O , O , O "},
      {"523", 13, 5, "H", two},
      {"721", 13, 4, "H", "O ОВ, O ОВ, O ОВ"_w},
      {"721", 13, 5, "H", one},
      {"521.1x", 13, 4, "H", "O ОВ, O ОВ, O ОВ"_w},
      {"521.1x", 13, 5, "H", one},
  };
  for (const auto& c : cases) {
    CAPTURE(c.model);
    CAPTURE(c.minute);
    Continuous reading(At(Instrument(c.model), c.hour, c.minute), 3, c.groups);
    reading.Run();
    CHECK(reading.AfterBatch() == c.written);
    CHECK(reading.stream.CountOf("OK / ReadStop") == 0);
    CHECK(reading.stream.CountOf("Error / ReadStop") == 0);
    // A notice for the mode and for each section, none beside them.
    const auto sections = static_cast<int>(reading.Sections().size() - reading.batch);
    CHECK(reading.stream.CountOf(" /  / 1") == 1 + sections);
  }
}

TEST_CASE("only a parameter of exactly 1 reads on") {
  for (const int value : {0, 2, -1}) {
    Continuous reading(Instrument("521"), 3);
    reading.Parameter(16, value);
    reading.Run();
    CHECK(reading.cycle == 0);
    CHECK(reading.stream.Said("OK / ReadStop"));
  }
}

TEST_CASE("continuous hours hold the values of their heat system") {
  Continuous reading(At(Instrument("523"), 13, 5), 2);
  reading.Run();
  const auto hours = reading.Sections('H', "ТВ2"_w);
  REQUIRE(hours.size() == 3);  // one of the batch
  for (int system = 1; system <= 2; ++system) {
    const auto row = reading.values.ArchiveRow(simulator::older::Archive::kHourly, system,
                                               simulator::ToMoment({2016, 9, 4, 13, 0, 0}));
    CHECK(hours[static_cast<std::size_t>(system)].Number(0, "P1") ==
          doctest::Approx(row.Value("P1")));
  }
}

TEST_CASE("a heat system that is switched off or cannot be opened leaves the other alone") {
  const struct {
    const char* model;
    int idle, silent;
    const char* written;
    int failures;  // in the batch and in both cycles that the host did not stop
  } cases[] = {
      {"522", 1, 0, "O , H ТВ2 13:00:00, D ТВ2 13:05:07, O , O "_w, 0},
      {"523", 0, 1, "O , O , H ТВ2 13:00:00, D ТВ2 13:05:07, O , O , O , O "_w, 3},
  };
  for (const auto& c : cases) {
    CAPTURE(c.model);
    simulator::Settings settings = At(Instrument(c.model), 13, 5);
    settings.special.idleSystem = c.idle;
    settings.special.silentSystem = c.silent;
    Continuous reading(settings, 3);
    reading.Run();
    CHECK(reading.AfterBatch() == c.written);
    CHECK(reading.stream.CountOf("1 / Init Opros Error ТВ"_w) == c.failures);
  }
}

TEST_CASE("a cycle whose reads fail is told, and the next one starts over") {
  const struct {
    const char* model;
    std::uint8_t p1, p2;  // address of the read of the first cycle that is lost
    const char* message;
    std::ptrdiff_t pauses;  // before the next cycle, when nothing was answered
  } cases[] = {{"521", 100, 0, "12 / Dt", 1},
               {"521", 195, 0, "12 / Op", 0},
               {"721", 243, 0, "12 / Dt", 1},
               {"721", 0x00, 2, "12 / Tek", 0},
               {"721", 0x80, 2, "12 / Tot", 0}};
  for (const auto& c : cases) {
    CAPTURE(c.message);
    Continuous reading(At(Instrument(c.model), 13, 4), 2);
    reading.Lose([&](const Bytes& request) {
      return reading.cycle == 1 && request[2] == 'R' && request[3] == c.p1 && request[4] == c.p2;
    });
    reading.Run();
    CHECK(reading.stream.CountOf(c.message) == 1);
    CHECK(reading.AfterBatch() == "O ОВ"_w);
    const auto pauses = support::clock::Pauses();
    CHECK(std::count(pauses.begin(), pauses.end(), 25U) == c.pauses);
  }
}

TEST_CASE("an instrument that came back as an unknown one is not asked without a pause") {
  Continuous reading(At(Instrument("523"), 13, 5), 4);
  const auto instrument = reading.port.answer;
  reading.port.answer = [&](const Bytes& written) {
    const bool changed = reading.cycle > 0 && support::older::IsRequest(written, '?');
    return changed ? support::older::Identification('T', 0x29, 9) : instrument(written);
  };
  reading.Run();
  CHECK(reading.stream.CountOf("pribor type not found / DT") == 3);
  const auto pauses = support::clock::Pauses();
  CHECK(std::count(pauses.begin(), pauses.end(), 25U) == 2);
}
