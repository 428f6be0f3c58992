#include "host/fields/unit_settings.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace host {
namespace {

// Fields of databases that name units.
constexpr std::string_view kSettings[] = {"ei",    "ei_p", "ei_q",  "rp1k", "rdp1k", "rt1k",
                                          "rqp1k", "rp2k", "rdp2k", "rt2k", "rqp2k"};

bool NamesUnits(const Entry& entry) {
  return std::find(std::begin(kSettings), std::end(kSettings), entry.base) != std::end(kSettings);
}

// How far the driver's text of a unit that the settings choose is to be believed.
enum class Trust { kNone, kLikely, kCertain };

bool IsK7(Model model) { return model == Model::kK7521 || model == Model::kK7523; }

// Units of K7 instruments come with the number; without it they were not read. What is no unit's
// number is told as the last unit.
Trust TrustK7(const Title& title, Unit told) {
  if (title.number.empty()) return Trust::kNone;
  return told == Unit::kBar ? Trust::kLikely : Trust::kCertain;
}

// The driver tells the first units for heat system 2 whatever the setting. While it follows an
// instrument its titles do not say which system a section is of.
Trust TrustTwoSystems(const Title& title, Unit told) {
  const bool first = told == Unit::kKgfCm2 || told == Unit::kGcal;
  return first && title.section != "ТВ1" ? Trust::kNone : Trust::kCertain;
}

Trust TrustIn(Model model, const Title& title, Unit told) {
  if (IsK7(model)) return TrustK7(title, told);
  if (model == Model::k522 || model == Model::k523) return TrustTwoSystems(title, told);
  return Trust::kCertain;
}

Unit Believe(Trust trust, Unit told, std::optional<Unit> set) {
  if (trust == Trust::kCertain) return told;
  if (set) return *set;
  return trust == Trust::kLikely ? told : Unit::kUnknown;
}

bool IsChosen(const Entry& entry) {
  return entry.unit != nullptr && std::string_view(entry.unit).find('|') != std::string_view::npos;
}

UnitOf ToldUnit(const Layout& layout, const Entry& entry, const Column& column, const Title& title,
                const UnitSettings& settings) {
  if (entry.unit == nullptr) return Unit::kUnknown;
  UnitOf told = UnitByText(column.unit);
  if (!IsChosen(entry)) return told;
  return Believe(TrustIn(layout.model, title, told.unit), told.unit,
                 IsHeat(told.unit) ? settings.Heat() : settings.Pressure());
}

// K7 instruments number the units of heat and of pressure alike.
Unit HeatBeside(Unit pressure) {
  for (unsigned code = 0; PressureUnitByCode(code) != Unit::kUnknown; ++code) {
    if (PressureUnitByCode(code) == pressure) return HeatUnitByCode(code);
  }
  return Unit::kUnknown;
}

Unit HeatUnit(const Layout& layout, const Column& column, const Title& title,
              const UnitSettings& settings) {
  const Unit told = UnitByText(column.unit).unit;
  const Trust trust = IsPressure(told) ? TrustIn(layout.model, title, told) : Trust::kNone;
  return Believe(trust, HeatBeside(told), settings.Heat());
}

// Leading blanks are none of the number's business.
std::optional<unsigned> NumberIn(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  unsigned number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc{} ? std::optional(number) : std::nullopt;
}

}  // namespace

UnitOf TrueUnit(const Layout& layout, const Entry& entry, const Column& column, const Title& title,
                const UnitSettings& settings) {
  switch (entry.truth.source) {
    case Source::kTold:
      return ToldUnit(layout, entry, column, title, settings);
    case Source::kFixed:
      return entry.truth.unit;
    case Source::kAsWritten:
      return {Unit::kOther, column.unit};
    case Source::kHeatSetting:
      return HeatUnit(layout, column, title, settings);
    case Source::kPressureSetting:
      return settings.Pressure().value_or(Unit::kUnknown);
    case Source::kText:
      return settings.Named(entry.truth.setting);
  }
  return Unit::kUnknown;
}

void UnitSettings::See(const Section& section) {
  const Layout* layout = FindLayout(section);
  if (layout == nullptr) return;
  for (const Column& column : section.columns) {
    const Entry* entry = FindEntry(*layout, column).entry;
    if (entry == nullptr || entry->truth.source != Source::kTold || !IsChosen(*entry)) continue;
    const Unit told = UnitByText(column.unit).unit;
    if (TrustIn(layout->model, section.title, told) != Trust::kCertain) continue;
    (IsHeat(told) ? toldHeat_ : toldPressure_) = told;
  }
}

void UnitSettings::See(const Section& section, const Cells& row) {
  if (section.title.kind != tav::TitleKind::kDatabase) return;
  const Layout* layout = FindLayout(section);
  if (layout == nullptr) return;
  for (std::size_t i = 0; i < section.columns.size() && i < row.size(); ++i) {
    const Entry* entry = FindEntry(*layout, section.columns[i]).entry;
    if (entry == nullptr || !NamesUnits(*entry)) continue;
    const std::string text = CellText(row[i]);
    if (!text.empty()) settings_[entry->base] = text;
  }
}

// A 523 has one code for both units.
std::optional<unsigned> UnitSettings::CodeOf(const char* own) const {
  auto setting = settings_.find(own);
  if (setting == settings_.end()) setting = settings_.find("ei");
  return setting == settings_.end() ? std::nullopt : NumberIn(setting->second);
}

// What a section told of itself is newer than a database that may have been kept.
std::optional<Unit> UnitSettings::Heat() const {
  if (toldHeat_) return toldHeat_;
  const std::optional<unsigned> code = CodeOf("ei_q");
  return code ? std::optional(HeatUnitByCode(*code)) : std::nullopt;
}

std::optional<Unit> UnitSettings::Pressure() const {
  if (toldPressure_) return toldPressure_;
  const std::optional<unsigned> code = CodeOf("ei_p");
  return code ? std::optional(PressureUnitByCode(*code)) : std::nullopt;
}

UnitOf UnitSettings::Named(const std::string& setting) const {
  const auto found = settings_.find(setting);
  return found == settings_.end() ? Unit::kUnknown : UnitByText(found->second);
}

}  // namespace host
