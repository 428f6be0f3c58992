// What the host hears while a model is read, and how far it has come.
#include <doctest/doctest.h>

#include "common/cp1251.h"
#include "tests/older/simulated.h"

using namespace common::literals;
using support::Bytes;
using support::Instrument;
using support::SimulatedReading;

namespace {

// All messages, those about records that were found left out, the serial number as ID.
std::string Told(const SimulatedReading& reading) {
  std::string told;
  const std::string number = reading.values.ParameterText(0, "ID") + " / Numer";
  for (const std::string& line : reading.stream.messages) {
    if (line == number) {
      told += "ID / Numer\n";
    } else if (!line.ends_with(" / Data read found")) {
      told += line + '\n';
    }
  }
  return told;
}

}  // namespace

TEST_CASE("the messages of a reading, in order") {
  const std::string begin = "2016.09.04:13.05.09 / Start Opros\n";
  const std::string end = "OK / ReadStop\n2016.09.04:13.05.09 / Opros End\n";
  const auto sections = [](const std::string& part, bool logs) {
    const std::string read = "Start Read " + part;
    std::string told;
    for (const char* name : {"BD", "Oper", "Mon", "Dey", "Hoyr"})
      told += read + " / " + name + '\n';
    if (logs) told += read + " ИЗМ / Sit\n"_w + read + " НС / Sit\n"_w;
    return told;
  };
  const auto system = [&](const std::string& number, bool logs) {
    const std::string name = "ТВ"_w + number;
    return name + " / Th\n" + number + " / Init Opros OK ТВ\n"_w + "7 / Regim" + number + '\n' +
           sections(name, logs);
  };
  const std::string clock = "2016.09.04 13:05:09 / DT\nID / Numer\n";
  const std::string whole = clock + "7 / Regim1\n" + sections("ОВ"_w, true);
  const struct {
    const char* model;
    std::string told;
    const char* section;  // left in the driver object
  } cases[] = {
      {"521",
       "УРМ521 / Tip\nvX.2.11 / Version\n521 / Th\n"_w + clock +
           "7 / Regim1\nStart Read / BD ОВ\nStart Read / Oper ОВ\nStart Read / Month ОВ\n"
           "Start Read / Dey ОВ\nStart Read / Hour ОВ\n"_w,
       ""},
      {"522",
       "УРМ522 / Tip\nV3 / Version\n522-0 / Th\n"_w + clock + "Start Read / BD ОВ\n"_w +
           system("1", false) + system("2", false),
       "ТВ2"_w},
      {"523",
       "УРМ523 / Tip\nV7 / Version\n523-0 / Th\n"_w + clock + "Start Read ОВ / BD\n /  / 1\n"_w +
           system("1", true) + system("2", true),
       "ТВ2"_w},
      {"721", "ДКГ721 / Tip\nV2 / Version\n721 / Th\n"_w + whole, "Общий"_w},
      {"521.1x", "УРМ521 / Tip\nV12 / Version\n521-1x / Th\n"_w + whole, "Общий"_w},
  };
  for (const auto& c : cases) {
    CAPTURE(c.model);
    simulator::Settings settings = Instrument(c.model);
    settings.special.modeCode = 7;
    SimulatedReading reading(settings, "BTMSHE");
    reading.Run();
    CHECK(Told(reading) == begin + c.told + end);
    CHECK(std::string(reading.driver.sectionText) == c.section);
  }
}

TEST_CASE("each group in either letter, but hours in upper case alone") {
  for (const char* model : {"521", "522", "523", "721", "521.1x"}) {
    CAPTURE(model);
    for (const std::string group : {"", "B", "t", "m", "s", "H", "h", "e"}) {
      CAPTURE(group);
      SimulatedReading reading(Instrument(model), group);
      reading.Run();
      const bool logs = std::string(model) != "521" && std::string(model) != "522";
      const bool none = group.empty() || group == "h" || (group == "e" && !logs);
      CHECK(reading.Sections().empty() == none);
      CHECK(reading.stream.Said("0 / Regim1"));
      CHECK(reading.stream.Said("OK / ReadStop"));
      CHECK(reading.driver.GetPr() == 101);
    }
  }
}

TEST_CASE("progress: its plan and its steps") {
  // The range: 172 hours, 8 days, 1 month beside the one begun.
  const struct {
    const char* model;
    const char* groups;
    std::string message;
    int units;  // planned
    int done;   // when the message comes
  } cases[] = {
      // 5, then 2 for the database; planned before the clock is read.
      {"521", "", "2016.09.04 13:05:09 / DT", 3, 5},
      {"521", "BT", "Start Read / BD ОВ"_w, 7, 7},
      {"521", "TMSH", "Start Read / Month ОВ"_w, 188, 9},
      {"521", "TmsH", "Start Read / Hour ОВ"_w, 188, 19},
      {"521", "h", "0 / Regim1", 175, 7},
      // 5 and 2 for the clock, 2 for the database; 2 and 8 for each heat system.
      {"523", "BTE", "Start Read ОВ / BD"_w, 33, 9},
      {"523", "BTE", "Start Read ТВ1 / BD"_w, 33, 19},
      {"523", "BTE", "Start Read ТВ1 ИЗМ / Sit"_w, 33, 21},
      {"522", "b", "2 / Init Opros OK ТВ"_w, 29, 19},
      {"522", "Mh", "Start Read ТВ2 / Mon"_w, 357, 31},
      // 8 for the database.
      {"721", "BTE", "2016.09.04 13:05:09 / DT", 33, 5},
      {"721", "BTE", "Start Read ОВ ИЗМ / Sit"_w, 33, 17},
      // Planned behind the clock.
      {"521.1x", "BTE", "2016.09.04 13:05:09 / DT", 33, 0},
      {"521.1x", "TH", "Start Read ОВ / Hoyr"_w, 357, 17},
  };
  for (const auto& c : cases) {
    CAPTURE(c.model);
    CAPTURE(c.message);
    SimulatedReading reading(Instrument(c.model), c.groups);
    float progress = -1;
    reading.stream.onMessage = [&](const std::string& line) {
      if (line == c.message) progress = reading.driver.progress;
    };
    reading.Run();
    CHECK(reading.driver.prStep == 100.0F / static_cast<float>(c.units));
    CHECK(progress == doctest::Approx(std::min(c.done * 100.0 / c.units, 99.0)));
  }
}

TEST_CASE("failures are told under the name of what failed") {
  const struct {
    const char* model;
    std::uint8_t function, p1, p2;  // the request that is lost
    const char* attempt;
    const char* failure;
    const char* sections;  // kinds
  } cases[] = {
      {"521", '?', 0, 0, "1 / PopitkaInit", "Error Init / Start Opros", ""},
      {"521", 'R', 100, 0, "1 Error: 12 / PopitkaTime", "12 / Dt", ""},
      {"521", 'E', 0, 0, "1 Error: 22 / PoitkaReadBD", "22 / BD", ""},
      {"521", 'R', 195, 0, "1 Error: 12 / PoitkaReadTek", "12 / Op", "B"},
      {"521", 'R', 328 - 256, 1, "1 Error: 22 / PoitkaReadTek", "22 / Op", "B"},
      {"522", 'R', 243, 0, "1 Error: 12 / PopitkaTime", "12 / Dt", "BOBO"},
      {"522", 'E', 0, 0, "1 Error: 12 / Flash522", "12 / BD", "BOBO"},
      {"522", 'E', 16, 0, "1 Error: 12 / Flash522", "12 / BD", "BBO"},
      {"522", 'R', 0x80, 2, "1 Error: 12 / PoitkaReadTot", "12 / Tot", "BBBO"},
      {"523", 'E', 0, 0, "1 Error: 12 / PoitkaReadBDOB", "12 / BD", "BOSSBOSS"},
      {"523", 'E', 0x10, 0, "1 Error: 12 / PoitkaReadBDTB", "12 / BD", "BBOSS"},
      {"523", 'R', 0x00, 3, "1 Error: 12 / PoitkaReadTek", "12 / Tek", "BBOSSB"},
      {"521.1x", 'R', 0x80, 2, "1 Error: 12 / PoitkaReadTot", "12 / Tot", "B"},
      {"521.1x", 'E', 0x80, 0, "1 Error: 12 / PoitkaReadSit", "OK / ReadStop", "BOS"},
  };
  for (const auto& c : cases) {
    CAPTURE(c.model);
    CAPTURE(c.attempt);
    SimulatedReading reading(Instrument(c.model), "BTE");
    reading.Lose([&](const Bytes& request) {
      return request[2] == c.function && request[3] == c.p1 && request[4] == c.p2;
    });
    reading.Run();
    CHECK(reading.stream.CountOf(c.attempt) == 1);
    CHECK(reading.stream.CountOf(c.failure) == 1);
    std::string kinds;
    for (const auto& section : reading.Sections()) kinds += section.kind;
    CHECK(kinds == c.sections);
  }
}

TEST_CASE("archive records that are there, and that are not") {
  const std::string missing = "2016.09.04 14:00:00 / Data not found";
  const struct {
    const char* model;
    int attempts, doubleReading;
    std::string found, missing;
    int times;          // that both are told
    std::string asked;  // sessions and hours
  } cases[] = {
      // One request and one message whatever attempts remain, for each heat system.
      {"523", 3, 0, "2016.9.4 13:00:00 / Data read found", missing, 2, "??HH?HH"},
      // A double reading identifies twice, too, and tells its records with padded dates.
      {"721", 1, 1, "2016.09.04 13:00:00 / Data read found", missing, 1, "??HHH"},
      // This one has no code for it, and tells its attempts.
      {"521", 2, 0, "1 Error: 22 / PoitkaArh", "2 Error: 22 / PoitkaArh", 1, "?HHH"},
  };
  for (const auto& c : cases) {
    CAPTURE(c.model);
    SimulatedReading reading(Instrument(c.model), "H");
    reading.Parameter(1, c.attempts);
    reading.Parameter(2, c.doubleReading);
    reading.Range({2016, 9, 0, 4, 13, 20}, {2016, 9, 0, 4, 14});
    std::string asked;
    reading.Lose([&](const Bytes& request) {
      if (request[2] == 'H' || request[2] == '?') asked += static_cast<char>(request[2]);
      return false;
    });
    reading.Run();
    CHECK(asked == c.asked);
    CHECK(reading.stream.CountOf(c.found) == c.times);
    CHECK(reading.stream.CountOf(c.missing) == c.times);
    CHECK(reading.Sections('H').at(0).rows.size() == 1);
  }
}

TEST_CASE("a range that ends before it starts gives empty sections") {
  SimulatedReading reading(Instrument("521"), "MSH");
  reading.Range({2016, 9, 0, 2, 3}, {2016, 8, 0, 30, 22});
  reading.Run();
  const auto sections = reading.Sections();
  REQUIRE(sections.size() == 3);
  for (const auto& section : sections) CHECK((section.rows.empty() && section.ended));
  CHECK(reading.driver.prStep == 100.0F / 8);
  CHECK(reading.stream.Said("OK / ReadStop"));
}
