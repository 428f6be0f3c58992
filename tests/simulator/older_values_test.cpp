#include <doctest/doctest.h>

#include <cmath>

#include "simulator/older/encoding.h"
#include "simulator/older/values.h"
#include "tests/simulator/line.h"

using namespace simulator;
using support::operator+;
using older::Archive;
using older::Values;

namespace {

const Moment kNow = ToMoment({2016, 9, 4, 13, 5, 9});

// The floats from an offset on, against the columns of a row.
void CheckFloats(const Bytes& data, std::size_t offset, const older::Row& row,
                 const std::vector<const char*>& columns) {
  REQUIRE(data.size() >= offset + 4 * columns.size());
  for (const char* column : columns) {
    CAPTURE(column);
    CHECK(FloatAt(data, offset) == static_cast<float>(row.Value(column)));
    offset += 4;
  }
}

}  // namespace

TEST_CASE("numbers and texts are encoded as the instruments have them") {
  const struct {
    double value;
    const char* bytes;
  } floats[] = {{1, "00 00 00 7F"},     {-4, "00 00 80 81"},         {0.1, "CD CC 4C 7B"},
                {0, "00 00 00 00"},     {0.99999999, "00 00 00 7F"}, {1e300, "FF FF 7F FE"},
                {1e-300, "00 00 00 00"}};
  for (const auto& one : floats) {
    Bytes bytes;
    older::PutFloat(bytes, one.value);
    CHECK(support::ToHex(bytes) == one.bytes);
  }
  Bytes text;
  older::PutText(text, "Апря Ёё1", 9, ' ');
  CHECK(support::ToHex(text) == "80 AF E0 EF 20 F0 F1 31 20");
}

TEST_CASE("every model's identification and clock to the byte") {
  const struct {
    const char* model;
    const char* identification;
    const char* clock;  // the request of its six bytes
  } cases[] = {{"521", "10 01 3F 54 29 04 3E 16", "52 64 00 06 00"},
               {"522", "10 01 3F 54 2A 03 3E 16", "52 F3 00 06 00"},
               {"523", "10 01 3F 54 2B 07 39 16", "52 F3 00 06 00"},
               {"721", "10 01 3F 47 29 02 4D 16", "52 F3 00 06 00"},
               {"521.1x", "10 01 3F 92 29 0C F8 16", "52 F3 00 06 00"}};
  for (const auto& one : cases) {
    CAPTURE(one.model);
    Line line(FixedSettings(one.model));
    CHECK(line.Ask("3F 00 00 00 00") == one.identification);
    CHECK(line.Ask(one.clock) == "10 01 52 10 09 04 0D 05 09 74 16");
    line.now.second = 10;
    CHECK(line.Ask(one.clock) == "10 01 52 10 09 04 0D 05 0A 73 16");
    CHECK(line.reports.empty());
  }
}

TEST_CASE("521: dates of the database, and totals") {
  const Settings settings = FixedSettings("521");
  Line line(settings);
  const Bytes pages = line.Data("45 00 00 02 00", 64);
  REQUIRE(pages.size() == 128);
  // 9.30 with the minute first; 1.9.14 with the year first; 27.3 and 30.10 with the month first
  CHECK(support::ToHex(Bytes(pages.begin() + 56, pages.begin() + 63)) == "1E 09 00 00 0E 09 01");
  CHECK(support::ToHex(Bytes(pages.begin() + 64, pages.begin() + 70)) == "03 1B 00 00 0A 1E");
  CheckFloats(line.Data("52 C3 00 28 00", 40), 0, Values(settings).TotalsRow(1, kNow),
              {"V1", "V2", "V3", "M1", "M2", "M3", "Q", "Tw"});
}

TEST_CASE("521: hourly records by mode code") {
  // Where a host takes V1 V2 V3 M1 M2 M3 from; 0: it writes a zero; 1: M1 - M2
  const int sources[11][6] = {
      {12, 16, 0, 20, 24, 1}, {12, 0, 16, 20, 24, 1}, {0, 12, 16, 20, 24, 1},
      {12, 16, 0, 20, 24, 0}, {12, 16, 0, 20, 24, 0}, {12, 0, 16, 20, 0, 24},
      {0, 12, 16, 0, 20, 24}, {12, 0, 0, 20, 0, 0},   {12, 16, 0, 20, 0, 0},
      {12, 16, 0, 0, 0, 0},   {0, 0, 0, 0, 0, 0}};
  const char* const columns[] = {"V1", "V2", "V3", "M1", "M2", "M3"};
  const Moment stamp = ToMoment({2016, 9, 4, 13, 0, 0});
  for (int mode = 0; mode <= 10; ++mode) {
    CAPTURE(mode);
    Settings settings = FixedSettings("521");
    settings.special.modeCode = mode;
    const older::Row row = Values(settings).ArchiveRow(Archive::kHourly, 1, stamp);
    const Bytes data = Line(settings).Data("48 74 09 04 0D", 32);
    CheckFloats(data, 4, row, {"t1", "t2"});
    CheckFloats(data, 28, row, {"Q"});
    CHECK(data[2] == mode);
    CHECK(data[3] == (row.Situation() & 0xFF));
    for (std::size_t i = 0; i < 6; ++i) {
      CAPTURE(columns[i]);
      const int source = sources[mode][i];
      float expected = 0;
      if (source == 1) {
        expected = static_cast<float>(FloatAt(data, 20)) - static_cast<float>(FloatAt(data, 24));
      } else if (source > 1) {
        expected = static_cast<float>(FloatAt(data, static_cast<std::size_t>(source)));
      }
      CHECK(static_cast<float>(row.Value(columns[i])) == expected);
      CHECK((source == 0) == (expected == 0));
    }
  }
}

TEST_CASE("521: records add up, and end with the clock") {
  const Settings settings = FixedSettings("521");
  Line line(settings);
  const Values values(settings);
  const Moment day = ToMoment({2016, 2, 29, 0, 0, 0});
  double heat = 0;
  for (int hour = 0; hour < 24; ++hour) {
    heat += values.MeasuredRow(Archive::kHourly, 1, day - std::chrono::hours(hour)).Value("Q");
  }
  CHECK(std::fabs(values.ArchiveRow(Archive::kDaily, 1, day).Value("Q") - heat) < 1e-9);

  const struct {
    const char* request;
    bool there;
  } records[] = {{"48 74 09 04 0D", true},  {"48 74 09 04 0E", false}, {"59 74 09 04 00", true},
                 {"59 74 09 05 00", false}, {"4D 74 09 00 00", true},  {"4D 74 0A 00 00", false},
                 {"48 71 01 01 00", true},  {"48 70 0C 1F 17", false}};
  for (const auto& record : records) {
    CAPTURE(record.request);
    CHECK((line.Ask(record.request) != "10 01 21 02 DB 16") == record.there);
  }
  CHECK(line.reports.empty());
}

TEST_CASE("values are those of a heating season and of the seed alone") {
  Settings settings = FixedSettings("521");
  const Values values(settings);
  settings.special.version = 12;
  const Values joules(settings);
  settings.seed = 2;
  const Values other(settings);
  const Values gas(FixedSettings("721"));
  for (int hour = 0; hour < 24 * 60; ++hour) {
    const Moment stamp = ToMoment({2016, 1, 1, 1, 0, 0}) + std::chrono::hours(hour);
    const older::Row row = values.ArchiveRow(Archive::kHourly, 1, stamp);
    const auto value = [&](const char* column) { return row.Value(column); };
    const double heat = (value("M1") * value("t1") - value("M2") * value("t2")) / 1000;
    CHECK((value("t1") > 60 && value("t1") < 130 && value("t2") > 35 && value("t2") < 80));
    CHECK(std::fabs(value("Q") - heat) < 0.05);
    CHECK(joules.ArchiveRow(Archive::kHourly, 1, stamp).Value("Q") == value("Q") * 4.1868);
    CHECK(other.ArchiveRow(Archive::kHourly, 1, stamp).Value("t1") != value("t1"));
    const older::Row volumes = gas.ArchiveRow(Archive::kHourly, 1, stamp);
    const double ratio = volumes.Value("V1") / volumes.Value("Vp1");
    CHECK((ratio > 2 && ratio < 4));
  }
}
