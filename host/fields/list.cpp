#include "host/fields/list.h"

#include <algorithm>
#include <string_view>

#include "host/fields/find.h"

namespace host {
namespace {

// The parts between '|'.
std::vector<UnitOf> UnitsByTexts(std::string_view texts) {
  std::vector<UnitOf> units;
  for (std::size_t begin = 0; begin <= texts.size();) {
    const std::size_t end = std::min(texts.find('|', begin), texts.size());
    units.push_back(UnitByText(texts.substr(begin, end - begin)));
    begin = end + 1;
  }
  return units;
}

// What a text of the database may well say of a quantity.
std::vector<UnitOf> UsualUnits(Quantity quantity) {
  switch (quantity) {
    case Quantity::kTemperature:
      return {Unit::kCelsius};
    case Quantity::kWorkingVolumeFlow:
      return {Unit::kCubicMetrePerHour};
    default:
      return {Unit::kKgfCm2, Unit::kMpa, Unit::kKpa, Unit::kBar};
  }
}

std::vector<UnitOf> ToldUnits(const Entry& entry) {
  if (entry.unit == nullptr) return {Unit::kUnknown};
  if (entry.unit[0] == '<') return UsualUnits(FindName(entry.base).quantity);
  return UnitsByTexts(entry.unit);
}

std::vector<UnitOf> PossibleUnits(const Entry& entry) {
  switch (entry.truth.source) {
    case Source::kTold:
      return ToldUnits(entry);
    case Source::kFixed:
      return {entry.truth.unit};
    case Source::kAsWritten:
      return {{Unit::kOther, entry.unit}};
    case Source::kHeatSetting:
      return {Unit::kGcal, Unit::kGj, Unit::kMwh};
    case Source::kPressureSetting:
      return {Unit::kKgfCm2, Unit::kMpa, Unit::kBar};
    case Source::kText:
      return UsualUnits(FindName(entry.base).quantity);
  }
  return {};
}

std::string NoteOf(const Entry& entry) {
  std::string note = FindName(entry.base).about;
  const auto add = [&note](const std::string& text) {
    if (!text.empty()) note += (note.empty() ? "" : "; ") + text;
  };
  add(entry.truth.reason);
  if (entry.truth.setting != nullptr) add("unit in " + std::string(entry.truth.setting));
  return note;
}

ListedColumn ListColumn(const ColumnRun& run, const Entry& entry) {
  ListedColumn listed{.column = entry.column,
                      .caption = CaptionOf(entry),
                      .driverUnit = entry.unit == nullptr ? entry.column : entry.unit,
                      .type = TypeIn(run, entry),
                      .role = run.role,
                      .fields = {},
                      .note = NoteOf(entry)};
  for (const UnitOf& unit : PossibleUnits(entry)) {
    listed.fields.push_back(FieldOf(run, entry, unit));
  }
  return listed;
}

ListedTable TableOf(const Layout& layout) {
  ListedTable table{NamesOf(layout.model).name, {}, {}};
  for (const ColumnRun& run : layout.runs) {
    for (const Entry& entry : run.entries) table.columns.push_back(ListColumn(run, entry));
  }
  return table;
}

}  // namespace

std::vector<ListedTable> ListFields() {
  std::vector<ListedTable> tables;
  for (const std::span<const Layout> layouts : AllLayouts()) {
    const Layout* before = nullptr;
    for (const Layout& layout : layouts) {
      const bool same = before != nullptr && before->runs.data() == layout.runs.data();
      if (!same) tables.push_back(TableOf(layout));
      tables.back().sections.emplace_back(NamesOf(layout.content).name);
      before = &layout;
    }
  }
  return tables;
}

}  // namespace host
