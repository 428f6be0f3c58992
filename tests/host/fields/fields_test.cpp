// The table of fields against the driver, and what it makes of its units.
#include "host/fields/fields.h"

#include <doctest/doctest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "host/fields/find.h"
#include "host/output/fields_list.h"
#include "tests/host/fields/instrument_reading.h"

using namespace fields_test;
using host::Field;
using host::Section;
using host::Unit;
using tav::Role;
using tav::Type;

namespace {

// The columns of a layout as the driver should tell them.
std::vector<const host::Entry*> EntriesOf(const host::Layout& layout) {
  std::vector<const host::Entry*> entries;
  for (const host::ColumnRun& run : layout.runs) {
    for (const host::Entry& entry : run.entries) entries.push_back(&entry);
  }
  return entries;
}

bool MayTell(const host::Entry& entry, const std::string& unit) {
  if (entry.unit == nullptr) return unit == entry.column;
  const std::string texts = entry.unit;
  return texts[0] == '<' || ('|' + texts + '|').find('|' + unit + '|') != std::string::npos;
}

// Heat and pressure may be in any of their units, or in one that nothing tells.
bool Suits(const Field& field) {
  using host::Quantity;
  static const std::map<Quantity, Unit> kUnits = {
      {Quantity::kTemperature, Unit::kCelsius},
      {Quantity::kTemperatureDifference, Unit::kCelsius},
      {Quantity::kVolume, Unit::kCubicMetre},
      {Quantity::kWorkingVolume, Unit::kCubicMetre},
      {Quantity::kMass, Unit::kTonne},
      {Quantity::kVolumeFlow, Unit::kCubicMetrePerHour},
      {Quantity::kWorkingVolumeFlow, Unit::kCubicMetrePerHour},
      {Quantity::kMassFlow, Unit::kTonnePerHour},
      {Quantity::kWorkingTime, Unit::kHour},
      {Quantity::kSituationTime, Unit::kHour},
      {Quantity::kDuration, Unit::kHour}};
  const Unit unit = field.unit.unit;
  if (field.quantity == Quantity::kHeat) return host::IsHeat(unit) || unit == Unit::kUnknown;
  if (field.quantity == Quantity::kPressure || field.quantity == Quantity::kPressureDifference) {
    return host::IsPressure(unit) || unit == Unit::kUnknown;
  }
  const auto expected = kUnits.find(field.quantity);
  return unit == (expected == kUnits.end() ? Unit::kNone : expected->second);
}

std::string DigitsOf(const std::string& name) {
  std::string digits;
  for (const char character : name) {
    if (character >= '0' && character <= '9') digits += character;
  }
  return digits;
}

// V2 is v2 and belongs to the second pipe.
void CheckMeasured(const host::Column& column, const Field& field) {
  CHECK(Suits(field));
  if (column.name == "dt_1_2") return;
  const std::string digits = DigitsOf(column.name);
  CHECK(DigitsOf(field.base) == digits);
  if (digits.empty() || field.quantity == host::Quantity::kSituationTime) return;
  const int pipe = digits[0] - '1';
  const auto first = field.base.starts_with("gas_") ? host::Pipe::kGas1 : host::Pipe::kSupply;
  CHECK(static_cast<int>(field.pipe) == static_cast<int>(first) + pipe);
}

// A name that a database column and a line protocol can bear.
bool IsSafe(const std::string& name) {
  return name[0] >= 'a' && name[0] <= 'z' &&
         name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789_") == std::string::npos;
}

void CheckSection(const Section& section, const host::Layout& layout) {
  const std::vector<const host::Entry*> entries = EntriesOf(layout);
  const std::vector<Field> fields = host::FieldsOf(section);
  REQUIRE(section.columns.size() == entries.size());
  std::set<std::string> names;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const host::Column& column = section.columns[i];
    CAPTURE(column.name);
    CHECK(host::FindEntry(layout, column).entry == entries[i]);
    CHECK(MayTell(*entries[i], column.unit));
    CHECK(!fields[i].name.starts_with("x_"));
    CHECK(IsSafe(fields[i].name));
    CHECK(names.insert(fields[i].name).second);
    if (section.title.kind != tav::TitleKind::kDatabase) CheckMeasured(column, fields[i]);
  }
}

const Field* FindField(const std::vector<KeptSection>& sections, const char* content,
                       const std::string& part, const std::string& column,
                       const host::UnitSettings& settings, std::vector<Field>& fields) {
  for (const KeptSection& kept : sections) {
    const host::Layout* layout = host::FindLayout(kept.section);
    if (layout == nullptr || host::NamesOf(layout->content).name != std::string(content)) continue;
    if (!kept.section.title.section.starts_with(part)) continue;
    fields = host::FieldsOf(kept.section, settings);
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (kept.section.columns[i].name == column) return &fields[i];
    }
  }
  return nullptr;
}

Section MadeUp(const char* model, tav::TitleKind kind, std::vector<host::Column> columns) {
  Section section;
  section.title.kind = kind;
  section.title.model = model;
  section.columns = std::move(columns);
  return section;
}

std::string NamesIn(const Section& section, const host::UnitSettings& settings = {}) {
  std::string names;
  for (const Field& field : host::FieldsOf(section, settings)) names += field.name + ' ';
  return names;
}

}  // namespace

TEST_CASE("every column of every section of every model is in the table") {
  for (const host::ModelNames& model : host::AllModels()) {
    for (int code = 0; code <= 2; ++code) {
      std::set<std::string> read;
      std::set<std::string> known;
      for (const KeptSection& kept : ReadAll(Instrument(model.name, code))) {
        CAPTURE(model.name);
        CAPTURE(static_cast<char>(kept.section.title.kind));
        CAPTURE(kept.section.title.section);
        const host::Layout* layout = host::FindLayout(kept.section);
        REQUIRE(layout != nullptr);
        CHECK(layout->model == model.model);
        read.insert(host::NamesOf(layout->content).name);
        CheckSection(kept.section, *layout);
      }
      for (const auto layouts : host::AllLayouts()) {
        for (const host::Layout& layout : layouts) {
          if (layout.model == model.model) known.insert(host::NamesOf(layout.content).name);
        }
      }
      CHECK(read == known);
    }
  }
}

TEST_CASE("true units: with all that the reading told, and with the section alone") {
  const struct {
    const char* model;
    int code;
    const char* content;
    const char* part;
    const char* column;
    const char* known;
    const char* alone;
  } cases[] = {
      {"521", 0, "current", "", "M1", "m1_total_t", "m1_total_t"},
      {"521", 0, "current", "", "G1", "gm1_t_h", "gm1_t_h"},
      {"521", 0, "hours", "", "Q", "q_gcal", "q_gcal"},
      {"521", 1, "months", "", "Q", "q_gj", "q_gj"},
      {"522", 1, "hours", "ТВ1", "Q", "q_gj", "q_gj"},
      {"522", 1, "hours", "ТВ2", "Q", "q_gj", "q"},
      {"522", 2, "system database", "ТВ2", "Px", "pk_cold_bar", "pk_cold"},
      {"522", 3, "days", "ТВ2", "P1", "p1", "p1"},
      {"522", 0, "database", "", "PI", "pi_s", "pi_s"},
      {"523", 0, "database", "", "Pxk", "pk_cold_kgf_cm2", "pk_cold"},
      {"523", 1, "database", "", "Pxk", "pk_cold_mpa", "pk_cold"},
      {"523", 0, "database", "", "TS", "ts", "ts"},
      {"523", 2, "current", "ТВ1", "Qgvs", "q_hot_water_total_mwh", "q_hot_water_total_mwh"},
      {"523", 2, "current", "ТВ2", "Qgvs", "q_hot_water_total_mwh", "q_hot_water_total"},
      {"523", 0, "current", "ТВ2", "P2", "p2_kgf_cm2", "p2"},
      {"521.1x", 2, "days", "", "Q", "q_mwh", "q"},
      {"521.1x", 1, "current", "", "Q", "q_total_gj", "q_total_gj"},
      {"721", 0, "current", "", "P2", "gas_p2_kgf_cm2", "gas_p2_kgf_cm2"},
      {"721", 0, "current", "", "dP1", "gas_dp1_kgf_cm2", "gas_dp1"},
      {"721", 0, "database", "", "Qp1k", "gas_qp1k_m3_h", "gas_qp1k"},
      {"k7-521", 0, "totals", "", "Q", "q_total_gcal", "q_total_gcal"},
      {"k7-521", 1, "hours", "", "P1", "p1_mpa", "p1_mpa"},
      {"k7-523", 1, "control", "ТВ2", "Qgvs", "q_hot_water_total_gj", "q_hot_water_total_gj"},
      {"k7-523", 2, "months", "ТВ1", "Q", "q_mwh", "q_mwh"},
      {"k7-523", 0, "system database", "ТВ1", "F002", "tk1", "tk1"}};
  for (const auto& c : cases) {
    CAPTURE(c.model);
    CAPTURE(c.code);
    CAPTURE(c.known);
    const std::vector<KeptSection> sections = ReadAll(Instrument(c.model, c.code));
    std::vector<Field> fields;
    const Field* field = FindField(sections, c.content, c.part, c.column, Seen(sections), fields);
    REQUIRE(field != nullptr);
    CHECK(field->name == c.known);
    field = FindField(sections, c.content, c.part, c.column, {}, fields);
    CHECK(field->name == c.alone);
  }
}

TEST_CASE("units that a K7 instrument did not really tell") {
  const auto current = [](const char* number, const char* unit) {
    Section section = MadeUp("УРМ523", tav::TitleKind::kCurrent,
                             {{"V1", Type::kDouble, 8, "м3", Role::kAccumulated, "V1", "default"},
                              {"Q", Type::kDouble, 8, unit, Role::kAccumulated, "Q", "default"}});
    section.title.number = number;
    return section;
  };
  Section database = MadeUp("УРМ523", tav::TitleKind::kDatabase,
                            {{"F000", Type::kChars, 5, "код", Role::kValue, "ЕИ", "default"}});
  host::UnitSettings settings;
  CHECK(NamesIn(current("1", "МПа"), settings) == "v1_total_m3 q_total_gj ");
  CHECK(NamesIn(current("", "кгс/см2"), settings) == "v1_total_m3 q_total ");
  CHECK(NamesIn(current("1", "бар"), settings) == "v1_total_m3 q_total_mwh ");
  settings.See(database, host::Cells{std::string(" 3")});
  CHECK(NamesIn(current("1", "бар"), settings) == "v1_total_m3 q_total ");
  settings.See(database, host::Cells{std::string("0")});
  CHECK(NamesIn(current("", "кгс/см2"), settings) == "v1_total_m3 q_total_gcal ");
}

TEST_CASE("a section of heat system 1 knows better than an older database") {
  const auto hours = [](const char* part, const char* unit) {
    Section section = MadeUp("УРМ523", tav::TitleKind::kHourly,
                             {{"P1", Type::kFloat, 4, unit, Role::kValue, "P1", "default"}});
    section.title.section = part;
    return section;
  };
  host::UnitSettings settings;
  settings.See(MadeUp("УРМ523", tav::TitleKind::kDatabase,
                      {{"EI", Type::kByte, 1, "код", Role::kValue, "ЕИ", "default"}}),
               host::Cells{std::uint32_t{2}});
  CHECK(NamesIn(hours("ТВ2", "кг/см2"), settings) == "p1_bar ");
  settings.See(hours("ТВ1", "МПа"));
  CHECK(NamesIn(hours("ТВ2", "кг/см2"), settings) == "p1_mpa ");
}

TEST_CASE("columns that are in no table") {
  const host::Column key{"DT", Type::kDateTime, 7, "Дата:время", Role::kKey, "DT", "default"};
  const host::Column mode{"SP", Type::kByte, 1, "Код Реж", Role::kValue, "SP", "default"};
  const host::Column heat{"Q", Type::kFloat, 4, "ГКал", Role::kValue, "Q", "default"};
  const host::Column later{"Q п-2", Type::kFloat, 4, "ГКал", Role::kValue, "Q", "default"};
  const host::Column nameless{"", Type::kFloat, 4, "", Role::kValue, "", "default"};
  CHECK(NamesIn(MadeUp("УРМ521", tav::TitleKind::kHourly, {key, mode, heat, later})) ==
        "time sp q_gcal x_q_p_2 ");
  CHECK(NamesIn(MadeUp("УРМ521", tav::TitleKind::kHourly, {key, mode, heat, heat})) ==
        "time sp q_gcal x_q ");
  CHECK(NamesIn(MadeUp("УРМ521", tav::TitleKind::kHourly, {key, later, nameless})) ==
        "x_dt x_q_p_2 x_column ");
  CHECK(NamesIn(MadeUp("УРМ529", tav::TitleKind::kHourly, {heat, heat, nameless, later})) ==
        "x_q x_q_2 x_column x_q_p_2 ");
  const Field field = host::FieldsOf(MadeUp("УРМ529", tav::TitleKind::kHourly, {heat})).at(0);
  CHECK(field.quantity == host::Quantity::kOther);
  CHECK(field.unit.text == "ГКал");
}

TEST_CASE("the list for programs") {
  for (const auto& row : nlohmann::json::parse(host::FieldsJson())) {
    if (row.at("model") != "523" || row.at("column") != "Q") continue;
    const bool total = row.at("sections").at(0) == "current";
    CHECK(row.at("base") == (total ? "q_total" : "q"));
    CHECK(row.at("fields").at(2) == (total ? "q_total_mwh" : "q_mwh"));
    CHECK(row.at("units") == nlohmann::json{"Gcal", "GJ", "MWh"});
    CHECK(row.at("pipe").is_null());
  }
}
