#include "host/fields/fields.h"

#include <map>
#include <set>

#include "host/stream/code_page.h"

namespace host {
namespace {

// Field names are names of database columns too, which may be 63 characters long.
constexpr std::size_t kLongestGenerated = 40;

bool IsAmount(Quantity quantity) {
  switch (quantity) {
    case Quantity::kVolume:
    case Quantity::kWorkingVolume:
    case Quantity::kMass:
    case Quantity::kHeat:
    case Quantity::kWorkingTime:
    case Quantity::kSituationTime:
    case Quantity::kDuration:
      return true;
    default:
      return false;
  }
}

bool IsMeasured(Quantity quantity) {
  return quantity >= Quantity::kTemperature && quantity <= Quantity::kDuration;
}

std::string NameWith(const std::string& base, Unit unit) {
  const std::string suffix = SuffixOf(unit);
  return suffix.empty() ? base : base + '_' + suffix;
}

// Makes names of columns that are in no table.
class Generator {
 public:
  Field Make(const Column& column) {
    Field field;
    field.base = field.name = Distinct(Safe(column.name));
    if (column.unit.empty() || column.unit == column.name) {
      field.unit = Unit::kUnknown;
    } else {
      field.unit = {Unit::kOther, column.unit};
    }
    return field;
  }

 private:
  static std::string Safe(const std::string& column) {
    std::string name = AsciiSlug(column).substr(0, kLongestGenerated);
    for (char& character : name) {
      if (character == '-') character = '_';
    }
    return "x_" + (name.empty() ? "column" : name);
  }

  std::string Distinct(const std::string& name) {
    std::string distinct = name;
    for (int& count = counts_[name]; !taken_.insert(distinct).second;) {
      distinct = name + '_' + std::to_string(++count + 1);
    }
    return distinct;
  }

  std::map<std::string, int> counts_;
  std::set<std::string> taken_;
};

}  // namespace

Field FieldOf(const ColumnRun& run, const Entry& entry, const UnitOf& unit) {
  const Name name = FindName(entry.base);
  Field field;
  field.base = entry.base;
  field.quantity = name.quantity;
  field.pipe = name.pipe;
  if (IsAmount(name.quantity)) field.span = run.span;
  if (field.span == Span::kTotal) field.base += "_total";
  // A quantity has a unit even where a text says "код".
  field.unit = unit.unit == Unit::kNone && IsMeasured(name.quantity) ? Unit::kUnknown : unit;
  field.name = NameWith(field.base, field.unit.unit);
  return field;
}

std::vector<Field> FieldsOf(const Section& section, const UnitSettings& settings) {
  const Layout* layout = FindLayout(section);
  std::vector<Field> fields;
  std::set<const Entry*> used;
  Generator generator;
  for (const Column& column : section.columns) {
    const FoundEntry found = layout == nullptr ? FoundEntry{} : FindEntry(*layout, column);
    if (found.entry == nullptr || !used.insert(found.entry).second) {
      fields.push_back(generator.Make(column));
      continue;
    }
    const UnitOf unit = TrueUnit(*layout, *found.entry, column, section.title, settings);
    fields.push_back(FieldOf(*found.run, *found.entry, unit));
  }
  for (std::size_t i = 0; i < section.units.size() && i < fields.size(); ++i) {
    fields[i] = WithUnit(fields[i], section.units[i]);
  }
  return fields;
}

Field WithUnit(const Field& field, const std::string& shown) {
  Field with = field;
  with.unit = UnitByShownText(shown);
  // An empty text stands for no unit and for one that nothing told.
  if (with.unit.unit == Unit::kUnknown && !IsMeasured(field.quantity)) with.unit = Unit::kNone;
  with.name = NameWith(field.base, with.unit.unit);
  return with;
}

Field Converted(const Field& field, const UnitChoice& choice) {
  Field converted = field;
  converted.unit = Chosen(field.unit, choice);
  if (converted.unit.unit != field.unit.unit) {
    converted.name = NameWith(field.base, converted.unit.unit);
  }
  return converted;
}

}  // namespace host
