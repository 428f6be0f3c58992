#include <doctest/doctest.h>

#include "simulator/older/values.h"
#include "tests/simulator/line.h"

using namespace simulator;
using older::Archive;
using older::Row;
using older::Values;

namespace {

const Moment kNow = ToMoment({2016, 9, 4, 13, 5, 9});
const Moment kHour = ToMoment({2016, 9, 4, 13, 0, 0});

std::string Text(const Bytes& bytes, std::size_t offset, std::size_t length) {
  const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
  return {begin, begin + static_cast<std::ptrdiff_t>(length)};
}

unsigned Integer(const Bytes& bytes, std::size_t offset, std::size_t width) {
  unsigned value = 0;
  while (width-- > 0) value = value * 256 + bytes[offset + width];
  return value;
}

void Open(Line& line, int system) {
  REQUIRE(!line.Ask(system == 2 ? "3F 02 00 00 00" : "3F 01 00 00 00").empty());
}

}  // namespace

TEST_CASE("each model identifies itself and has its clock at 243") {
  const struct {
    const char* model;
    const char* reply;
  } cases[] = {{"522", "10 01 3F 54 2A 03 3E 16"},
               {"523", "10 01 3F 54 2B 07 39 16"},
               {"721", "10 01 3F 47 29 02 4D 16"},
               {"521.1x", "10 01 3F 92 29 0C F8 16"}};
  for (const auto& one : cases) {
    CAPTURE(one.model);
    Line line(FixedSettings(one.model));
    CHECK(line.Ask("3F 00 00 00 00") == one.reply);
    CHECK(line.Ask("52 F3 00 06 00") == "10 01 52 10 09 04 0D 05 09 74 16");
    CHECK(line.Ask("52 64 00 06 00") == "10 01 21 02 DB 16");
    CHECK(line.Ask("48 74 09 04 0E") == "10 01 21 03 DA 16");
    CHECK(line.reports.size() == 1);
  }
}

TEST_CASE("current values and totals stand in the order of their columns") {
  const struct {
    const char* model;
    const char* request;
    std::size_t size;
    std::size_t offset;
    const char* column;
  } cases[] = {
      {"522", "52 00 02 25 00", 37, 33, "dt_1_2"}, {"522", "52 80 02 20 00", 32, 28, "Tw"},
      {"522", "52 00 03 25 00", 37, 17, "P1"},     {"522", "52 80 03 20 00", 32, 24, "Q"},
      {"523", "52 00 02 31 00", 49, 37, "t3"},     {"523", "52 80 02 24 00", 36, 32, "Qgvs"},
      {"523", "52 00 03 31 00", 49, 45, "tvoz"},   {"523", "52 80 03 24 00", 36, 20, "M3"},
      {"521.1x", "52 00 02 1D 00", 29, 17, "t1"},  {"521.1x", "52 80 02 20 00", 32, 0, "V1"},
      {"721", "52 00 02 40 00", 64, 8, "dP1"},     {"721", "52 00 02 40 00", 64, 60, "t3"},
      {"721", "52 80 02 1C 00", 28, 16, "Vsn"},
  };
  for (const auto& one : cases) {
    CAPTURE(one.model);
    CAPTURE(one.request);
    Settings settings = FixedSettings(one.model);
    settings.special.modeCode = 3;
    const Values values(settings);
    const int system = one.request[7] == '3' ? 2 : 1;
    const bool current = one.request[3] == '0';
    const Row row = current ? values.CurrentRow(system, kNow) : values.TotalsRow(system, kNow);
    const Bytes data = Line(settings).Data(one.request, one.size);
    REQUIRE(data.size() == one.size);
    CHECK(FloatAt(data, one.offset) == static_cast<float>(row.Value(one.column)));
    CHECK(row.Value(one.column) != 0);
    if (!current) continue;
    const bool gas = one.model == std::string("721");
    CHECK((gas || data[0] == 3));
    CHECK(Integer(data, gas ? 0 : 1, 4) == row.Situation());
  }
}

TEST_CASE("archive records: mode code, situation, floats") {
  const struct {
    const char* model;
    std::size_t offset;
    const char* column;
  } cases[] = {{"522", 4, "P1"}, {"522", 48, "Tw"},   {"523", 24, "thv"},  {"523", 48, "M2"},
               {"523", 52, "Q"}, {"523", 60, "Qgvs"}, {"521.1x", 4, "t1"}, {"521.1x", 40, "Tw"},
               {"721", 4, "TC"}, {"721", 8, "P1"},    {"721", 44, "Vp"},   {"521.1x", 32, "M3"}};
  Moment stamp = kHour;
  while (Values(FixedSettings("521.1x")).ArchiveRow(Archive::kHourly, 1, stamp).Situation() < 256) {
    stamp -= std::chrono::hours(1);
  }
  const ClockTime time = ToClockTime(stamp);
  for (const auto& one : cases) {
    CAPTURE(one.model);
    CAPTURE(one.column);
    Settings settings = FixedSettings(one.model);
    settings.special.modeCode = 3;
    const Row row = Values(settings).ArchiveRow(Archive::kHourly, 1, stamp);
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    const std::string request = support::ToHex(
        {'H', byte(time.year - 1900), byte(time.month), byte(time.day), byte(time.hour)});
    const Bytes data = Line(settings).Data(request, 64);
    REQUIRE(data.size() == 64);
    CHECK(FloatAt(data, one.offset) == static_cast<float>(row.Value(one.column)));
    CHECK(data[0] == (one.model == std::string("721") ? 0xFF : 3));
    CHECK(Integer(data, 1, 3) == row.Situation());
  }
}

TEST_CASE("the last identification chooses the heat system of the archives") {
  for (const char* model : {"522", "523"}) {
    Settings settings = FixedSettings(model);
    const Values values(settings);
    Line line(settings);
    const auto heat = [&](const char* request) { return line.Data(request, 64); };
    const auto first = heat("59 74 09 04 00");
    Open(line, 2);
    const auto second = heat("59 74 09 04 00");
    CHECK(first != second);
    CHECK(FloatAt(second, 4) ==
          static_cast<float>(
              values.ArchiveRow(Archive::kDaily, 2, ToMoment({2016, 9, 4, 0, 0, 0})).Value("P1")));
    CHECK(line.Ask("3F 03 00 00 00") == "10 01 21 01 DC 16");
    CHECK(heat("59 74 09 04 00") == second);
    CHECK(!line.Ask("3F 00 00 00 00").empty());
    CHECK(heat("59 74 09 04 00") == first);

    settings.special.silentSystem = 2;
    Line silent(settings);
    CHECK(silent.Ask("3F 02 00 00 00").empty());
    CHECK(silent.reports.empty());
    Open(silent, 1);
  }
}

TEST_CASE("database texts stand where the maps say") {
  const struct {
    const char* model;
    const char* request;
    std::size_t pages;
    std::size_t offset;  // of the first text of the block to look at
    std::string text;
  } cases[] = {
      {"523", "45 00 00 03 00", 3, 0, "2       "},
      {"523", "45 00 00 03 00", 3, 160, "-12.25  "},
      {"523", "45 10 00 04 00", 4, 0, "9       "},
      {"523", "45 20 00 04 00", 4, 8, "102     "},
      {"523", "45 20 00 04 00", 4, 240, "2       "},
      {"522", "45 00 00 03 00", 3, 4, "2       "},
      {"522", "45 00 00 03 00", 3, 36, "09:30:00"},
      {"522", "45 08 00 08 00", 8, 4, "9       "},
      {"522", "45 10 00 08 00", 8, 20, "102     "},
      {"522", "45 10 00 08 00", 8, 452, "2       "},
      {"521.1x", "45 00 00 06 00", 6, 8, "9       "},
      {"521.1x", "45 00 00 06 00", 6, 328, "2       "},
      {"721", "45 00 00 07 00", 7, 0, "9       "},
      {"721", "45 00 00 07 00", 7, 264, "3.25    "},
  };
  for (const auto& one : cases) {
    CAPTURE(one.model);
    CAPTURE(one.request);
    CAPTURE(one.offset);
    Settings settings = FixedSettings(one.model);
    settings.special.unitsCode = 2;
    settings.special.modeCode = 9;
    const Bytes flash = Line(settings).Data(one.request, 64);
    REQUIRE(flash.size() == 64 * one.pages);
    std::string text = Text(flash, one.offset, 8);
    for (char& letter : text) letter = letter == '\0' ? ' ' : letter;
    CHECK(text == one.text);
  }
}

TEST_CASE("special settings reach the database and the values") {
  Settings settings = FixedSettings("523");
  settings.special.idleSystem = 2;
  settings.special.unitsCode = 1;
  settings.special.brokenParameter = "txk";
  Line line(settings);
  CHECK(Text(line.Data("45 10 00 04 00", 64), 0, 2) != "99");
  CHECK(Text(line.Data("45 20 00 04 00", 64), 0, 2) == "99");
  CHECK(line.Data("52 00 03 31 00", 49)[0] == 'c');
  CHECK(Text(line.Data("45 00 00 03 00", 64), 11 * 8, 5) == "??.??");
  CHECK(Values(settings).ParameterText(0, "txk") == "??.??");
  const Row joules = Values(settings).CurrentRow(1, kNow);
  settings.special.unitsCode = 0;
  const Row calories = Values(settings).CurrentRow(1, kNow);
  CHECK(joules.Value("Q") == calories.Value("Q") * 4.1868);
  CHECK(joules.Value("P1") == calories.Value("P1") * 0.0980665);
  CHECK(joules.Value("t1") == calories.Value("t1"));
}

TEST_CASE("logs: the oldest entry first, an end unless they are full") {
  for (const int count : {0, 40, 100}) {
    CAPTURE(count);
    Settings settings = FixedSettings("523");
    settings.special.logEntries = count;
    Line line(settings);
    const auto entries = Values(settings).Log(2, kNow);
    REQUIRE(entries.size() == static_cast<std::size_t>(count));
    const Bytes changes = line.Data("45 C0 00 32 00", 64);
    const Bytes situations = line.Data("45 00 01 26 00", 64);
    REQUIRE(changes.size() == 3200);
    REQUIRE(situations.size() == 38 * 64);
    Moment before{};
    for (std::size_t i = 0; i < entries.size(); ++i) {
      const ClockTime& time = entries[i].time;
      CHECK(ToMoment(time) > before);
      before = ToMoment(time);
      const std::string text = Text(changes, 32 * i, 17);
      CHECK(std::stoi(text) == time.day);
      CHECK(std::stoi(text.substr(9)) == time.hour);
      CHECK(text == Text(situations, 24 * i, 17));
      CHECK(situations[24 * i + 17] == entries[i].situation);
      CHECK(situations[24 * i + 18] == entries[i].flag);
    }
    CHECK(before < kNow);
    if (count < 100) {
      CHECK(changes[static_cast<std::size_t>(32 * count)] == 0xFF);
      CHECK(situations[static_cast<std::size_t>(24 * count)] == 0);
    }
  }
  CHECK(Line(FixedSettings("522")).Ask("45 40 00 32 00") == "10 01 21 02 DB 16");
}

TEST_CASE("gas: volumes fit their pressures and temperatures") {
  const Values values(FixedSettings("721"));
  for (int hour = 0; hour < 24 * 30; ++hour) {
    const Row row = values.ArchiveRow(Archive::kHourly, 1, kHour - std::chrono::hours(hour));
    CHECK((row.Value("V1") > 2 * row.Value("Vp1") && row.Value("V1") < 4 * row.Value("Vp1")));
    CHECK(row.Value("Vp") == row.Value("Vp1") + row.Value("Vp2"));
    CHECK((row.Value("t1") > -20 && row.Value("t1") < 40));
  }
}
