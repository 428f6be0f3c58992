// Units of measurement: their names, what the driver calls them, and how heat and pressure convert.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {

enum class Unit {
  kNone,     // no unit: codes, dates, texts
  kUnknown,  // there is one, but nothing tells which
  kOther,    // one of a text that is none of the following
  kCelsius,
  kCubicMetre,
  kTonne,
  kGcal,
  kGj,
  kMwh,
  kKgfCm2,
  kMpa,
  kKpa,
  kBar,
  kCubicMetrePerHour,
  kTonnePerHour,
  kHour,
  kSecond,
};

bool IsHeat(Unit unit);
bool IsPressure(Unit unit);

// "kgf_cm2", the end of a field's name; empty for the first three.
const char* SuffixOf(Unit unit);
// "kgf/cm2"; empty for the first three.
const char* TextOf(Unit unit);

// The unit of one value: what the name ends with, and what is shown beside the value.
struct UnitOf {
  Unit unit = Unit::kNone;
  // TextOf(unit), with what the driver told besides ("kgf/cm2 абс."); the driver's own text for
  // kOther; empty for kNone and kUnknown.
  std::string text;

  UnitOf() = default;
  UnitOf(Unit known) : unit(known), text(TextOf(known)) {}  // NOLINT: a unit is its own text
  UnitOf(Unit kind, std::string shown) : unit(kind), text(std::move(shown)) {}
};

// The unit by the driver's text, in UTF-8: "кг/см2", "'C"; the texts that stand in place of a unit
// where there is none ("код", "h.m.s") give kNone, an empty one kUnknown.
UnitOf UnitByText(std::string_view told);

// The same by the text that UnitOf shows: "kgf/cm2", "kPa abs."; an empty one gives kUnknown.
UnitOf UnitByShownText(const std::string& text);

// The units that an instrument's setting of units (0, 1, 2) stands for; kUnknown for others.
Unit HeatUnitByCode(unsigned code);
Unit PressureUnitByCode(unsigned code);

// A heat into another unit of heat, a pressure into another of pressure, in double arithmetic. Any
// other pair leaves the value as it is.
double Convert(double value, Unit from, Unit to);

// What units a user wants; none: as the instrument has them.
struct UnitChoice {
  std::optional<Unit> heat;
  std::optional<Unit> pressure;
};

// "gj", "mpa", "gcal,kgf", "as-is"; null when a word is none of as-is, gcal, gj, mwh, kgf, mpa,
// kpa, bar, or when two name a unit of the same quantity.
std::optional<UnitChoice> ParseUnitChoice(std::string_view words);

// The unit that a value of a unit is wanted in; the same unit where nothing is to be converted.
UnitOf Chosen(const UnitOf& unit, const UnitChoice& choice);

}  // namespace host
