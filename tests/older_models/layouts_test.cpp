#include <doctest/doctest.h>

#include "common/cp1251.h"
#include "tests/older_models/simulated.h"

using namespace common::literals;
using support::Instrument;
using support::Section;
using support::SimulatedReading;

namespace {

struct Whole : SimulatedReading {
  explicit Whole(const simulator::Settings& settings) : SimulatedReading(settings, "BTMSHE") {
    Run();
  }
};

}  // namespace

TEST_CASE("units of pressure and heat by the instrument's code") {
  constexpr const char* kPressures[] = {"кг/см2"_w, "МПа"_w, "бар"_w};
  constexpr const char* kHeats[] = {"ГКал"_w, "ГДж"_w, "МВт"_w};
  const struct {
    const char* model;
    char kind;
    const char* title;
    const char* pressure;
    const char* heat;
    bool followsCode;
  } cases[] = {
      {"522", 'B', "ТВ1"_w, "Px", nullptr, true},  {"522", 'B', "ТВ2"_w, "Pk3", nullptr, false},
      {"522", 'H', "ТВ1"_w, "P1", "Q", true},      {"522", 'M', "ТВ2"_w, "P2", "Q", false},
      {"523", 'B', "ТВ1"_w, "WP1", "Qk", true},    {"523", 'B', "ТВ2"_w, "WP2", "Qk", false},
      {"523", 'O', "ТВ1"_w, "P1", "Qgvs", true},   {"523", 'H', "ТВ2"_w, "P1", "Qgvs", false},
      {"521.1x", 'B', "ОВ"_w, "Pxk", "Qk", true},  {"521.1x", 'O', "ОВ"_w, nullptr, "Q", true},
      {"521.1x", 'H', "ОВ"_w, nullptr, "Q", false}};
  for (const auto& c : cases) {
    for (int code = 0; code <= 2; ++code) {
      CAPTURE(c.model);
      CAPTURE(c.kind);
      CAPTURE(code);
      simulator::Settings settings = Instrument(c.model);
      settings.special.unitsCode = code;
      const Section section = Whole(settings).Sections(c.kind, c.title).at(0);
      const int expected = c.followsCode ? code : 0;
      if (c.pressure != nullptr) CHECK(section.Column(c.pressure).unit == kPressures[expected]);
      if (c.heat != nullptr) CHECK(section.Column(c.heat).unit == kHeats[expected]);
    }
  }
}

TEST_CASE("a units code that names none stops the layout, not the reading") {
  const struct {
    const char* model;
    char kind;
    const char* title;
    int announced;
    std::size_t columns;  // that are written
  } cases[] = {{"522", 'B', "ТВ1"_w, 29, 3},    {"522", 'B', "ТВ2"_w, 29, 29},
               {"522", 'O', "ТВ1"_w, 18, 5},    {"522", 'H', "ТВ1"_w, 15, 3},
               {"523", 'B', "ТВ1"_w, 31, 6},    {"523", 'O', "ТВ1"_w, 22, 5},
               {"523", 'M', "ТВ1"_w, 19, 3},    {"523", 'D', "ТВ2"_w, 19, 19},
               {"521.1x", 'B', "ОВ"_w, 42, 21}, {"521.1x", 'O', "ОВ"_w, 16, 14}};
  for (const auto& c : cases) {
    CAPTURE(c.model);
    CAPTURE(c.kind);
    simulator::Settings settings = Instrument(c.model);
    settings.special.unitsCode = 3;
    const Whole reading(settings);
    CHECK(reading.stream.Said("OK / ReadStop"));
    const Section section = reading.Sections(c.kind, c.title).at(0);
    CHECK(section.announced == c.announced);
    CHECK(section.columns.size() == c.columns);
    CHECK(!section.rows.empty());
  }
}

TEST_CASE("oddities of single columns") {
  const auto general = Whole(Instrument("523")).Sections('B', "ОВ"_w).at(0);
  CHECK(general.Column("Pxk").unit == "'C");
  CHECK(general.Column("txk").caption == "tхк"_w);
  const auto later = Whole(Instrument("521.1x")).Sections();
  CHECK(later.at(0).Column("TMK").caption == "ВМН"_w);
  CHECK(later.at(0).Column("TMK").group == "ВМК"_w);
  CHECK(later.at(1).Column("Tw").role == 'd');
  CHECK(later.at(1).Column("Q").role == 'i');
  const auto totals = Whole(Instrument("523")).Sections('O', "ТВ1"_w).at(0);
  CHECK(totals.Column("Tw").role == 'i');
  CHECK(totals.Column("Tw").caption == "Tр"_w);
  CHECK(totals.Column("NS").group == "kns0");
  CHECK(totals.Column("G1").group == "default");
}

TEST_CASE("units of a 721 are texts of its database") {
  const Whole reading(Instrument("721"));
  const auto current = reading.Sections('O').at(0);
  CHECK(current.Column("P2").unit == "кгс/см2 абс."_w);
  CHECK(current.Column("dP3").unit == "кгс/см2 дифф."_w);
  CHECK(current.Column("P3").unit == "кгс/см2 избыточ"_w);
  CHECK(current.Column("P4").unit == "кгс/см2 изб."_w);
  CHECK(current.Column("t3").unit == "'C");
  for (const char kind : {'O', 'H', 'D', 'M'}) {
    CHECK(reading.Sections(kind).at(0).Column("P1").unit == "кгс/см2"_w);
  }
  const auto database = reading.Sections('B').at(0);
  for (const auto& column : database.columns) CHECK(column.unit == column.name);
}
