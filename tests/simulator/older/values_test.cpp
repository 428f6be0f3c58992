#include "simulator/older/values.h"

#include <doctest/doctest.h>

#include <cmath>

#include "simulator/older/encoding.h"
#include "tests/simulator/line.h"

using namespace simulator;
using older::Archive;
using older::Values;

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

TEST_CASE("records are there from the clock back to the first of January three years ago") {
  Line line(FixedSettings("521"));
  const std::pair<const char*, bool> records[] = {
      {"48 74 09 04 0D", true},  {"48 74 09 04 0E", false}, {"59 74 09 04 00", true},
      {"59 74 09 05 00", false}, {"4D 74 09 00 00", true},  {"4D 74 0A 00 00", false},
      {"48 71 01 01 00", true},  {"48 70 0C 1F 17", false}};
  for (const auto& [request, there] : records) {
    CAPTURE(request);
    CHECK((line.Ask(request) != "10 01 21 02 DB 16") == there);
  }
}

TEST_CASE("values are those of a heating season, and they add up") {
  const Values values(FixedSettings("521")), gas(FixedSettings("721"));
  double heats = 0;
  for (int hour = 1; hour <= 24 * 31; ++hour) {
    const Moment stamp = ToMoment({2016, 1, 1, 0, 0, 0}) + std::chrono::hours(hour);
    const older::Row row = values.ArchiveRow(Archive::kHourly, 1, stamp);
    const auto value = [&](const char* column) { return row.Value(column); };
    const double heat = (value("M1") * value("t1") - value("M2") * value("t2")) / 1000;
    CHECK((value("t1") > 60 && value("t1") < 130 && value("t2") > 35 && value("t2") < 80));
    CHECK(std::fabs(value("Q") - heat) < 0.05);
    heats += value("Q");
    const older::Row volumes = gas.ArchiveRow(Archive::kHourly, 1, stamp);
    const double ratio = volumes.Value("V1") / volumes.Value("Vp1");
    CHECK((ratio > 2 && ratio < 4));
  }
  const older::Row january =
      values.ArchiveRow(Archive::kMonthly, 1, ToMoment({2016, 2, 1, 0, 0, 0}));
  CHECK(std::fabs(january.Value("Q") - heats) < 1e-6);
}
