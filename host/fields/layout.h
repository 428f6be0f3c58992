// The tables of fields: what every column of every section of every model is. Runs of columns that
// several sections share stand once; a layout says which runs make up a section.
//
// The driver's side of a row (name, type, role, unit, caption) is also how a section is recognised.
#pragma once

#include <span>

#include "TKSplDrv/records.h"
#include "host/fields/units.h"

namespace host {

enum class Quantity {
  kOther,  // a column that is in no table
  kTime,   // the date and time of a record
  kModeCode,
  kSituationCode,
  kDiagnosticCode,
  kFlag,
  kTemperature,
  kTemperatureDifference,
  kPressure,
  kPressureDifference,
  kVolume,
  kWorkingVolume,  // of gas as it flows, not at standard conditions
  kMass,
  kHeat,
  kVolumeFlow,
  kWorkingVolumeFlow,
  kMassFlow,
  kWorkingTime,
  kSituationTime,  // how long situations lasted
  kDuration,       // another length of time
  kDate,           // a setting: a date, a day of the year,
  kTimeOfDay,      // or a time of day
  kSetting,        // any other setting
  kText,
};

enum class Pipe {
  kNone,
  kSupply,
  kReturn,
  kThird,  // make-up or hot water, as the heat system is built
  kFourth,
  kColdWater,
  kHotWater,
  kAir,
  kGas1,  // gas lines and sensors of a gas corrector
  kGas2,
  kGas3,
  kGas4,
};

// What an amount (volume, mass, heat, time) was counted over.
enum class Span {
  kNone,      // no amount, or a value of the moment or mean value
  kInterval,  // the hour, day or month of the record
  kTotal,     // since the counter began
};

// A name of a field without its unit, and what it means. Names that are in no such row are settings
// that no pipe is told of.
struct Name {
  const char* base;
  Quantity quantity;
  Pipe pipe = Pipe::kNone;
  const char* about = "";
};
// A name's row; a setting when there is none.
Name FindName(std::string_view base);

// Where the true unit of a column comes from.
enum class Source {
  kTold,             // the driver's unit is right
  kFixed,            // always unit
  kAsWritten,        // the driver's text stays as it is: what is counted is not known
  kHeatSetting,      // the instrument's unit of heat,
  kPressureSetting,  // of pressure, which the driver does not tell here
  kText,             // the text of a database column
};

struct Truth {
  Source source = Source::kTold;
  Unit unit = Unit::kNone;
  const char* setting = nullptr;  // kText: the name of the database column's field
  const char* reason = "";        // why the driver's unit is not taken, where that needs a word
};

// A column.
struct Entry {
  const char* column;  // the driver's name
  tav::Type type;
  // The driver's units, with '|' between those that the settings choose among; "<RP1k>": the text
  // of that database column; null: the column's own name.
  const char* unit;
  const char* base;               // the field's name without its unit
  const char* caption = nullptr;  // null: the column's name
  Truth truth = {};
};

// Columns in a row, and what they are in this section.
struct ColumnRun {
  std::span<const Entry> entries;
  tav::Role role = tav::Role::kValue;
  Span span = Span::kNone;
  // Replaces the type of the entries, unless it is kAsIs.
  static constexpr tav::Type kAsIs{};
  tav::Type type = kAsIs;
};

enum class Model { k521, k522, k523, k521x, k721, kK7521, kK7523 };

struct ModelNames {
  Model model;
  const char* name;  // as the simulated instruments are called
  const char* told;  // the driver's model text; three and two models share one
};
std::span<const ModelNames> AllModels();
const ModelNames& NamesOf(Model model);

enum class Content {
  kDatabase,
  kSystemDatabase,
  kCurrent,
  kTotals,
  kHours,
  kDays,
  kMonths,
  kControl,
  kChanges,
  kSituations,
  kEvents,
};

struct ContentNames {
  Content content;
  const char* name;
  tav::TitleKind kind;
};
const ContentNames& NamesOf(Content content);

// The first column of every archive and log.
inline constexpr Entry kRecordTime[] = {{"DT", tav::Type::kDateTime, "Дата:время", "time"}};

// A section of a model.
struct Layout {
  Model model;
  Content content;
  std::span<const ColumnRun> runs;
};
// One file each in host/fields/models.
std::span<const Layout> Layouts521();
std::span<const Layout> Layouts522();
std::span<const Layout> Layouts523();
std::span<const Layout> Layouts521x();
std::span<const Layout> Layouts721();
std::span<const Layout> LayoutsK7521();
std::span<const Layout> LayoutsK7523();

}  // namespace host
