// Units: what the driver calls them, and conversions.
#include "host/fields/units.h"

#include <doctest/doctest.h>

#include "host/fields/fields.h"

using host::Field;
using host::Unit;

TEST_CASE("texts of units") {
  const struct {
    const char* told;
    Unit unit;
    const char* text;
  } cases[] = {{"МВт", Unit::kMwh, "MWh"},
               {"кгс/см2 абс.", Unit::kKgfCm2, "kgf/cm2 абс."},
               {" кПа ", Unit::kKpa, "kPa"},
               {"мм рт.ст.", Unit::kOther, "мм рт.ст."},
               {"т абс.", Unit::kOther, "т абс."},
               {"   ", Unit::kUnknown, ""},
               {"D:M", Unit::kNone, ""}};
  for (const auto& c : cases) {
    CAPTURE(c.told);
    CHECK(host::UnitByText(c.told).unit == c.unit);
    CHECK(host::UnitByText(c.told).text == c.text);
  }
}

TEST_CASE("conversions") {
  const struct {
    Unit from;
    const char* choice;
    const char* name;  // of the field q
    double expected;   // of 2
  } cases[] = {{Unit::kGcal, "gj", "q_gj", 8.3736},
               {Unit::kGj, "gcal,bar", "q_gcal", 2 / 4.1868},
               {Unit::kGcal, "mwh", "q_mwh", 2.326},
               {Unit::kMwh, "kpa,gj", "q_gj", 7.2},
               {Unit::kMwh, "as-is", "q_mwh", 2},
               {Unit::kKgfCm2, "mpa", "q_mpa", 0.196133},
               {Unit::kKgfCm2, "gj,kpa", "q_kpa", 196.133},
               {Unit::kBar, "kgf", "q_kgf_cm2", 2 / 0.980665},
               {Unit::kMpa, "bar", "q_bar", 20},
               {Unit::kMpa, "gj", "q_mpa", 2},
               {Unit::kTonne, "gj,mpa", "q_t", 2}};
  for (const auto& c : cases) {
    CAPTURE(c.name);
    Field field;
    field.base.assign(1, 'q');
    field.name.append("q_").append(host::SuffixOf(c.from));
    field.unit = c.from;
    const Field converted = host::Converted(field, host::ParseUnitChoice(c.choice).value());
    CHECK(converted.name == c.name);
    CHECK(host::Convert(2, c.from, converted.unit.unit) ==
          doctest::Approx(c.expected).epsilon(1e-15));
  }
  for (const char* wrong : {"", "kj", "gj,gcal", "mpa;gj", "gj,"}) {
    CAPTURE(wrong);
    CHECK(!host::ParseUnitChoice(wrong));
  }
  const auto mpa = host::ParseUnitChoice("mpa").value();
  CHECK(host::Chosen(host::UnitByText("кгс/см2 изб."), mpa).text == "MPa изб.");
}
