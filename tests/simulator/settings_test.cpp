#include <doctest/doctest.h>

#include "tests/simulator/line.h"

using namespace simulator;

TEST_CASE("settings out of range are refused") {
  const std::pair<const char*, void (*)(Settings&)> cases[] = {
      {"model", [](Settings& s) { s.model = "524"; }},
      {"number", [](Settings& s) { s.number = 256; }},
      {"units", [](Settings& s) { s.special.unitsCode = -1; }},
      {"log entries", [](Settings& s) { s.special.logEntries = 101; }},
      {"clock", [](Settings& s) { s.clock->day = 31; }},
      {"fault", [](Settings& s) { s.faults.push_back({"smoke"}); }},
      {"another protocol's fault", [](Settings& s) { s.faults.push_back({"echo"}); }},
      {"how often",
       [](Settings& s) {
         s.faults.push_back({"noise", 0});
       }},
      {"how long",
       [](Settings& s) {
         s.faults.push_back({"frozen", 1, 0});
       }},
  };
  for (const auto& [name, change] : cases) {
    CAPTURE(name);
    Settings settings = FixedSettings("521");
    change(settings);
    CHECK_THROWS_AS(MakeInstrument(settings, ClockOf(settings)), std::invalid_argument);
  }
}
