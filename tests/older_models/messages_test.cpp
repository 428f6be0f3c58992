// What the host hears while a model is read, and how far it has come.
#include <doctest/doctest.h>

#include <map>

#include "common/cp1251.h"
#include "tests/older_models/simulated.h"

using namespace common::literals;
using support::Bytes;
using support::Instrument;
using support::Said;
using support::SimulatedReading;

namespace {

using Lines = std::vector<std::string>;

// The messages between the identity and the end, without those about single archive records.
Lines Told(const SimulatedReading& reading) {
  const auto& all = reading.stream.messages;
  Lines lines(all.begin() + 3, all.end() - 1);
  std::erase_if(lines,
                [](const std::string& line) { return line.ends_with(" / Data read found"); });
  return lines;
}

Lines SystemLines(const std::string& number, const std::vector<std::string>& sections) {
  const std::string name = std::string("ТВ"_w) + number;
  Lines lines = {name + " / Th", Said(number.c_str(), "Init Opros OK ТВ"_w), "7 / Regim" + number};
  for (const std::string& section : sections) lines.push_back("Start Read " + name + section);
  return lines;
}

Lines Joined(std::initializer_list<Lines> parts) {
  Lines all;
  for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

}  // namespace

TEST_CASE("the messages of a reading, in order") {
  const Lines clock = {"2016.09.04 13:05:09 / DT"};
  const Lines end = {"OK / ReadStop"};
  const Lines sections = {" / BD", " / Oper", " / Mon", " / Dey", " / Hoyr"};
  const std::string changes = std::string(" ИЗМ"_w) + " / Sit";
  const std::string situations = std::string(" НС"_w) + " / Sit";
  const Lines withLogs = Joined({sections, {changes, situations}});
  const Lines whole = [&] {
    Lines lines = {"7 / Regim1"};
    for (const std::string& section : withLogs) {
      lines.push_back(std::string("Start Read ОВ"_w) + section);
    }
    return lines;
  }();
  for (const char* model : {"522", "523", "721", "521.1x"}) {
    CAPTURE(model);
    simulator::Settings settings = Instrument(model);
    settings.special.modeCode = 7;
    SimulatedReading reading(settings, "BTMSHE");
    reading.Run();
    const Lines number = {reading.values.ParameterText(0, "ID") + " / Numer"};
    const std::map<std::string, Lines> expected = {
        {"522", Joined({{"522-0 / Th"},
                        clock,
                        number,
                        {Said("Start Read", "BD ОВ"_w)},
                        SystemLines("1", sections),
                        SystemLines("2", sections),
                        end})},
        {"523", Joined({{"523-0 / Th"},
                        clock,
                        number,
                        {Said("Start Read ОВ"_w, "BD"), " /  / 1"},
                        SystemLines("1", withLogs),
                        SystemLines("2", withLogs),
                        end})},
        {"721", Joined({{"721 / Th"}, clock, number, whole, end})},
        {"521.1x", Joined({{"521-1x / Th"}, clock, number, whole, end})},
    };
    CHECK(Told(reading) == expected.at(model));
    CHECK(std::string(reading.driver.sectionText) ==
          (model[0] == '5' && model[3] == '\0' ? "ТВ2"_w : "Общий"_w));
  }
}

TEST_CASE("without groups the databases are read and told, but not written") {
  for (const char* model : {"522", "523", "721", "521.1x"}) {
    CAPTURE(model);
    SimulatedReading reading(Instrument(model), "h");
    reading.Run();
    CHECK(reading.stream.writes.empty());
    CHECK(reading.stream.Said("0 / Regim1"));
    CHECK(reading.stream.Said("OK / ReadStop"));
    CHECK(reading.stream.CountOf(" /  / 1") == 0);
  }
}

TEST_CASE("progress: its plan and its steps") {
  const struct {
    const char* model;
    const char* groups;
    std::string message;
    int units;  // planned
    int done;   // when the message comes
  } cases[] = {
      // 5 and 2 for the clock, 2 for the database; 2 and 8 for each heat system.
      {"523", "BTE", Said("Start Read ОВ"_w, "BD"), 33, 9},
      {"523", "BTE", Said("Start Read ТВ1"_w, "BD"), 33, 19},
      {"523", "BTE", Said("Start Read ТВ1 ИЗМ"_w, "Sit"), 33, 21},
      {"522", "b", Said("2", "Init Opros OK ТВ"_w), 29, 19},
      {"522", "Mh", Said("Start Read ТВ2"_w, "Mon"), 357, 31},
      // Planned before the clock is read; 8 for the database.
      {"721", "BTE", Said("2016.09.04 13:05:09", "DT"), 33, 5},
      {"721", "BTE", Said("Start Read ОВ ИЗМ"_w, "Sit"), 33, 17},
      // Planned behind the clock.
      {"521.1x", "BTE", Said("2016.09.04 13:05:09", "DT"), 33, 0},
      {"521.1x", "TH", Said("Start Read ОВ"_w, "Hoyr"), 357, 17},
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
    CHECK(progress == doctest::Approx(c.done * 100.0 / c.units));
  }
}

TEST_CASE("failures are told under the name of what failed") {
  const struct {
    const char* model;
    std::uint8_t function, p1, p2;  // the request that is lost
    const char* attempt;
    const char* failure;
  } cases[] = {
      {"522", 'E', 0, 0, "1 Error: 12 / Flash522", "12 / BD"},
      {"522", 'E', 16, 0, "1 Error: 12 / Flash522", "12 / BD"},
      {"523", 'E', 0, 0, "1 Error: 12 / PoitkaReadBDOB", "12 / BD"},
      {"523", 'E', 0x10, 0, "1 Error: 12 / PoitkaReadBDTB", "12 / BD"},
      {"523", 'R', 0x00, 3, "1 Error: 12 / PoitkaReadTek", "12 / Tek"},
      {"522", 'R', 0x80, 2, "1 Error: 12 / PoitkaReadTot", "12 / Tot"},
      {"521.1x", 'R', 0x80, 2, "1 Error: 12 / PoitkaReadTot", "12 / Tot"},
      {"521.1x", 'E', 0x80, 0, "1 Error: 12 / PoitkaReadSit", nullptr},
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
    if (c.failure != nullptr) CHECK(reading.stream.CountOf(c.failure) == 1);
  }
}

TEST_CASE("an archive record that is not there costs one request and one message") {
  SimulatedReading reading(Instrument("523"), "H");
  reading.Parameter(1, 3);
  reading.Range({2016, 9, 0, 4, 12}, {2016, 9, 0, 4, 15});
  int hours = 0;
  reading.Lose([&](const Bytes& request) {
    hours += request[2] == 'H' ? 1 : 0;
    return false;
  });
  reading.Run();
  CHECK(hours == 4 * 2);
  CHECK(reading.Sections('H').at(0).rows.size() == 2);
  CHECK(reading.stream.CountOf("2016.9.4 13:00:00 / Data read found") == 2);
  CHECK(reading.stream.CountOf("2016.09.04 14:00:00 / Data not found") == 2);
  CHECK(reading.stream.Said("OK / ReadStop"));

  SimulatedReading twice(Instrument("721"), "M");
  twice.Parameter(2, 1);  // a double reading tells its records with padded dates
  twice.Run();
  CHECK(twice.stream.Said("2016.08.01 00:00:00 / Data read found"));
}
