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

TEST_CASE("columns and bytes of every record") {
  const struct {
    const char* model;
    char kind;
    const char* title;
    std::size_t columns;
    std::vector<std::size_t> pieces;
  } cases[] = {
      {"522", 'B', "ОВ"_w, 11, {47}},      {"522", 'B', "ТВ1"_w, 29, {101}},
      {"522", 'O', "ТВ1"_w, 18, {37, 32}}, {"522", 'M', "ТВ1"_w, 15, {60}},
      {"522", 'D', "ТВ2"_w, 15, {60}},     {"522", 'H', "ТВ2"_w, 15, {60}},
      {"523", 'B', "ОВ"_w, 21, {65}},      {"523", 'B', "ТВ2"_w, 31, {103}},
      {"523", 'O', "ТВ2"_w, 22, {49, 36}}, {"523", 'M', "ТВ1"_w, 19, {76}},
      {"523", 'D', "ТВ1"_w, 19, {76}},     {"523", 'H', "ТВ2"_w, 19, {76}},
      {"523", 'S', "ТВ1 ИЗМ"_w, 2, {22}},  {"523", 'S', "ТВ2 НС"_w, 3, {9}},
      {"721", 'B', "ОВ"_w, 42, {322}},     {"721", 'O', "ОВ"_w, 23, {64, 28}},
      {"721", 'M', "ОВ"_w, 13, {55}},      {"721", 'D', "ОВ"_w, 13, {55}},
      {"721", 'H', "ОВ"_w, 13, {55}},      {"721", 'S', "ОВ ИЗМ"_w, 2, {22}},
      {"521.1x", 'B', "ОВ"_w, 42, {143}},  {"521.1x", 'O', "ОВ"_w, 16, {29, 32}},
      {"521.1x", 'M', "ОВ"_w, 13, {52}},   {"521.1x", 'D', "ОВ"_w, 13, {52}},
      {"521.1x", 'H', "ОВ"_w, 13, {52}},   {"521.1x", 'S', "ОВ НС"_w, 3, {9}},
  };
  for (const auto& c : cases) {
    CAPTURE(c.model);
    CAPTURE(c.kind);
    CAPTURE(c.title);
    const Whole reading(Instrument(c.model));
    const auto sections = reading.Sections(c.kind, c.title);
    REQUIRE(sections.size() == 1);
    CHECK(sections[0].announced == static_cast<int>(c.columns));
    CHECK(sections[0].columns.size() == c.columns);
    REQUIRE(!sections[0].rows.empty());
    std::size_t width = 0;
    for (const auto& column : sections[0].columns) width += static_cast<std::size_t>(column.width);
    CHECK(width == sections[0].Row(0).size());
    std::vector<std::size_t> pieces;
    for (const auto& piece : sections[0].rows[0]) pieces.push_back(piece.size());
    CHECK(pieces == c.pieces);
  }
}

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
      {"522", 'B', "ТВ1"_w, "Px", nullptr, true},   {"522", 'B', "ТВ2"_w, "Pk3", nullptr, false},
      {"522", 'O', "ТВ1"_w, "P2", "Q", true},       {"522", 'O', "ТВ2"_w, "P1", "Q", false},
      {"522", 'H', "ТВ1"_w, "P1", "Q", true},       {"522", 'M', "ТВ2"_w, "P2", "Q", false},
      {"523", 'B', "ТВ1"_w, "WP1", "Qk", true},     {"523", 'B', "ТВ2"_w, "WP2", "Qk", false},
      {"523", 'O', "ТВ1"_w, "P1", "Qgvs", true},    {"523", 'O', "ТВ2"_w, "P1", "Q", false},
      {"523", 'D', "ТВ1"_w, "P1", "Qgvs", true},    {"523", 'H', "ТВ2"_w, "P1", "Qgvs", false},
      {"521.1x", 'B', "ОВ"_w, "Pxk", "Qk", true},   {"521.1x", 'O', "ОВ"_w, nullptr, "Q", true},
      {"521.1x", 'H', "ОВ"_w, nullptr, "Q", false}, {"521.1x", 'M', "ОВ"_w, nullptr, "Q", false},
  };
  for (const auto& c : cases) {
    for (int code = 0; code <= 2; ++code) {
      CAPTURE(c.model);
      CAPTURE(c.kind);
      CAPTURE(code);
      simulator::Settings settings = Instrument(c.model);
      settings.special.unitsCode = code;
      const auto sections = Whole(settings).Sections(c.kind, c.title);
      REQUIRE(sections.size() == 1);
      const int expected = c.followsCode ? code : 0;
      if (c.pressure != nullptr) {
        CHECK(sections[0].Column(c.pressure).unit == kPressures[expected]);
      }
      if (c.heat != nullptr) CHECK(sections[0].Column(c.heat).unit == kHeats[expected]);
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
  } cases[] = {
      {"522", 'B', "ОВ"_w, 11, 11},    {"522", 'B', "ТВ1"_w, 29, 3},
      {"522", 'B', "ТВ2"_w, 29, 29},   {"522", 'O', "ТВ1"_w, 18, 5},
      {"522", 'H', "ТВ1"_w, 15, 3},    {"523", 'B', "ТВ1"_w, 31, 6},
      {"523", 'O', "ТВ1"_w, 22, 5},    {"523", 'M', "ТВ1"_w, 19, 3},
      {"523", 'S', "ТВ1 НС"_w, 3, 3},  {"523", 'D', "ТВ2"_w, 19, 19},
      {"521.1x", 'B', "ОВ"_w, 42, 21}, {"521.1x", 'O', "ОВ"_w, 16, 14},
      {"521.1x", 'D', "ОВ"_w, 13, 13},
  };
  for (const auto& c : cases) {
    CAPTURE(c.model);
    CAPTURE(c.kind);
    CAPTURE(c.title);
    simulator::Settings settings = Instrument(c.model);
    settings.special.unitsCode = 3;
    const Whole reading(settings);
    CHECK(reading.stream.Said("OK / ReadStop"));
    const auto sections = reading.Sections(c.kind, c.title);
    REQUIRE(sections.size() == 1);
    CHECK(sections[0].announced == c.announced);
    CHECK(sections[0].columns.size() == c.columns);
    CHECK(!sections[0].rows.empty());
  }
}

TEST_CASE("units of a 721 are texts of its database") {
  const Whole reading(Instrument("721"));
  const auto current = reading.Sections('O').at(0);
  const struct {
    const char* column;
    const char* unit;
  } cases[] = {
      {"P1", "кгс/см2"_w},         {"dP1", "кгс/см2"_w},       {"P2", "кгс/см2 абс."_w},
      {"dP2", "кгс/см2 абс."_w},   {"dP3", "кгс/см2 дифф."_w}, {"Pb", "кгс/см2"_w},
      {"P3", "кгс/см2 избыточ"_w}, {"P4", "кгс/см2 изб."_w},   {"t3", "'C"},
  };
  for (const auto& c : cases) {
    CAPTURE(c.column);
    CHECK(current.Column(c.column).unit == c.unit);
  }
  for (const char kind : {'H', 'D', 'M'}) {
    CHECK(reading.Sections(kind).at(0).Column("P1").unit == "кгс/см2"_w);
    CHECK(reading.Sections(kind).at(0).Column("P2").unit == "кгс/см2 абс."_w);
  }
  const auto database = reading.Sections('B').at(0);
  for (const auto& column : database.columns) CHECK(column.unit == column.name);
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
