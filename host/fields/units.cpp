#include "host/fields/units.h"

#include <algorithm>
#include <array>

namespace host {
namespace {

enum class Dimension { kOther, kHeat, kPressure };

// scale: how many tenths of a megajoule, or tenths of a pascal; all exact.
struct Known {
  Unit unit;
  const char* suffix;
  const char* text;
  Dimension dimension = Dimension::kOther;
  double scale = 1;
};

constexpr Known kKnown[] = {
    {Unit::kCelsius, "c", "°C"},
    {Unit::kCubicMetre, "m3", "m3"},
    {Unit::kTonne, "t", "t"},
    {Unit::kGcal, "gcal", "Gcal", Dimension::kHeat, 41868},
    {Unit::kGj, "gj", "GJ", Dimension::kHeat, 10000},
    {Unit::kMwh, "mwh", "MWh", Dimension::kHeat, 36000},
    {Unit::kKgfCm2, "kgf_cm2", "kgf/cm2", Dimension::kPressure, 980665},
    {Unit::kMpa, "mpa", "MPa", Dimension::kPressure, 10000000},
    {Unit::kKpa, "kpa", "kPa", Dimension::kPressure, 10000},
    {Unit::kBar, "bar", "bar", Dimension::kPressure, 1000000},
    {Unit::kCubicMetrePerHour, "m3_h", "m3/h"},
    {Unit::kTonnePerHour, "t_h", "t/h"},
    {Unit::kHour, "h", "h"},
    {Unit::kSecond, "s", "s"},
};

// Heat as "МВт" is an amount all the same, megawatt-hours.
struct Spelling {
  const char* told;
  Unit unit;
};
constexpr Spelling kSpellings[] = {
    {"'C", Unit::kCelsius},
    {"м3", Unit::kCubicMetre},
    {"тонн", Unit::kTonne},
    {"т", Unit::kTonne},
    {"ГКал", Unit::kGcal},
    {"ГДж", Unit::kGj},
    {"МВт", Unit::kMwh},
    {"кг/см2", Unit::kKgfCm2},
    {"кгс/см2", Unit::kKgfCm2},
    {"МПа", Unit::kMpa},
    {"кПа", Unit::kKpa},
    {"бар", Unit::kBar},
    {"м3/час", Unit::kCubicMetrePerHour},
    {"т/час", Unit::kTonnePerHour},
    {"т/ч", Unit::kTonnePerHour},
    {"Час", Unit::kHour},
    {"час.", Unit::kHour},
    {"час", Unit::kHour},
    {"сек", Unit::kSecond},
    // Kinds of values that have no unit, and how dates are written.
    {"код", Unit::kNone},
    {"Код НС", Unit::kNone},
    {"Код ДС", Unit::kNone},
    {"Код Реж", Unit::kNone},
    {"Тип ТС", Unit::kNone},
    {"номер", Unit::kNone},
    {"конф", Unit::kNone},
    {"коэф", Unit::kNone},
    {"Вкл", Unit::kNone},
    {"Дата:время", Unit::kNone},
    {"h.m.s", Unit::kNone},
    {"hh.mm", Unit::kNone},
    {"D.M.Y", Unit::kNone},
    {"D.M", Unit::kNone},
    {"D:M", Unit::kNone},
};

struct Word {
  std::string_view word;
  Unit unit;
};
constexpr Word kWords[] = {
    {"gcal", Unit::kGcal}, {"gj", Unit::kGj},   {"mwh", Unit::kMwh}, {"kgf", Unit::kKgfCm2},
    {"mpa", Unit::kMpa},   {"kpa", Unit::kKpa}, {"bar", Unit::kBar},
};

const Known* FindKnown(Unit unit) {
  const auto* known = std::find_if(std::begin(kKnown), std::end(kKnown),
                                   [unit](const Known& each) { return each.unit == unit; });
  return known == std::end(kKnown) ? nullptr : known;
}

Dimension DimensionOf(Unit unit) {
  const Known* known = FindKnown(unit);
  return known == nullptr ? Dimension::kOther : known->dimension;
}

const Spelling* FindSpelling(std::string_view told) {
  const auto* spelling = std::find_if(std::begin(kSpellings), std::end(kSpellings),
                                      [told](const Spelling& each) { return each.told == told; });
  return spelling == std::end(kSpellings) ? nullptr : spelling;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(' ');
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

// Adds what a word asks for.
bool Add(UnitChoice& choice, std::string_view word) {
  if (word == "as-is") return true;
  const auto* found = std::find_if(std::begin(kWords), std::end(kWords),
                                   [word](const Word& each) { return each.word == word; });
  if (found == std::end(kWords)) return false;
  std::optional<Unit>& wanted = IsHeat(found->unit) ? choice.heat : choice.pressure;
  if (wanted) return false;
  wanted = found->unit;
  return true;
}

}  // namespace

bool IsHeat(Unit unit) { return DimensionOf(unit) == Dimension::kHeat; }
bool IsPressure(Unit unit) { return DimensionOf(unit) == Dimension::kPressure; }

const char* SuffixOf(Unit unit) {
  const Known* known = FindKnown(unit);
  return known == nullptr ? "" : known->suffix;
}

const char* TextOf(Unit unit) {
  const Known* known = FindKnown(unit);
  return known == nullptr ? "" : known->text;
}

UnitOf UnitByText(std::string_view told) {
  const std::string_view text = Trimmed(told);
  if (text.empty()) return Unit::kUnknown;
  if (const Spelling* spelling = FindSpelling(text)) return spelling->unit;
  // A gas corrector says besides whether a pressure is absolute, above the atmosphere or a
  // difference.
  const std::size_t blank = text.find(' ');
  const Spelling* spelling = FindSpelling(text.substr(0, blank));
  if (spelling == nullptr || !IsPressure(spelling->unit)) return {Unit::kOther, std::string(text)};
  return {spelling->unit, TextOf(spelling->unit) + std::string(text.substr(blank))};
}

UnitOf UnitByShownText(const std::string& text) {
  if (text.empty()) return Unit::kUnknown;
  const std::string first = text.substr(0, text.find(' '));
  const auto* known = std::find_if(std::begin(kKnown), std::end(kKnown),
                                   [&](const Known& each) { return first == each.text; });
  return {known == std::end(kKnown) ? Unit::kOther : known->unit, text};
}

Unit HeatUnitByCode(unsigned code) {
  constexpr std::array kUnits = {Unit::kGcal, Unit::kGj, Unit::kMwh};
  return code < kUnits.size() ? kUnits[code] : Unit::kUnknown;
}

Unit PressureUnitByCode(unsigned code) {
  constexpr std::array kUnits = {Unit::kKgfCm2, Unit::kMpa, Unit::kBar};
  return code < kUnits.size() ? kUnits[code] : Unit::kUnknown;
}

double Convert(double value, Unit from, Unit to) {
  const Known* given = FindKnown(from);
  const Known* wanted = FindKnown(to);
  if (given == wanted || given == nullptr || wanted == nullptr) return value;
  if (given->dimension != wanted->dimension || given->dimension == Dimension::kOther) return value;
  return value * given->scale / wanted->scale;
}

std::optional<UnitChoice> ParseUnitChoice(std::string_view words) {
  UnitChoice choice;
  for (std::size_t begin = 0; begin <= words.size();) {
    const std::size_t end = std::min(words.find(',', begin), words.size());
    if (!Add(choice, words.substr(begin, end - begin))) return std::nullopt;
    begin = end + 1;
  }
  return choice;
}

UnitOf Chosen(const UnitOf& unit, const UnitChoice& choice) {
  std::optional<Unit> wanted;
  if (IsHeat(unit.unit)) wanted = choice.heat;
  if (IsPressure(unit.unit)) wanted = choice.pressure;
  if (!wanted) return unit;
  const std::size_t named = std::string_view(TextOf(unit.unit)).size();
  return {*wanted, TextOf(*wanted) + unit.text.substr(named)};
}

}  // namespace host
