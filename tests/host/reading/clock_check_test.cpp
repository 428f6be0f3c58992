#include "host/reading/clock_check.h"

#include <doctest/doctest.h>

TEST_CASE("the instrument's clock is compared with this machine's") {
  struct Case {
    const char* told;
    int warning;             // s
    const char* difference;  // null: nothing is known
    bool beyond;
  };
  const Case cases[] = {
      {"2016.09.04 13:05:09", 120, "0 s ahead of", false},
      {"2016.9.4 13:5:9", 120, "0 s ahead of", false},
      {"2016.9.4 13:3:9", 120, "2 min behind", false},
      {"2016.9.4 13:3:8", 120, "2 min behind", true},
      {"2016.9.4 13:3:8", 0, "2 min behind", false},
      {"2016.9.4 9:53:9", 120, "3 h 12 min behind", true},
      {"2017.9.4 13:5:9", 120, "365 d ahead of", true},
      {"2000.0.0 0:0:0", 120, nullptr, false},
      {"2016.9.4 13:5", 120, nullptr, false},
      {"2016.9.4 13:5:9x", 120, nullptr, false},
      {"", 120, nullptr, false},
  };
  for (const Case& item : cases) {
    CAPTURE(item.told);
    host::ReadSettings settings;
    settings.clockWarning = std::chrono::seconds(item.warning);
    host::RunListener deaf;
    host::ClockCheck check(deaf, settings, [] { return SYSTEMTIME{2016, 9, 0, 4, 13, 5, 9, 0}; });
    check.Tell({"2000.1.1 0:0:0", "Th"});
    check.Tell({item.told, "DT"});
    check.Tell({item.told, "DT"});
    REQUIRE(check.Reading().has_value() == (item.difference != nullptr));
    if (item.difference == nullptr) continue;
    CHECK(host::ClockDifference(*check.Reading()) ==
          "the instrument's clock is " + std::string(item.difference) + " this machine's");
    CHECK(check.Reading()->beyond == item.beyond);
  }
}
