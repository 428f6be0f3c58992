#include "host/store/record_layout.h"

#include <algorithm>

#include "host/fields/fields.h"
#include "host/reading/periods.h"

namespace host {
namespace {

Slot::Type TypeOf(tav::Type type) {
  switch (type) {
    case tav::Type::kFloat:
      return Slot::Type::kReal;
    case tav::Type::kDouble:
      return Slot::Type::kWideReal;
    case tav::Type::kInt32:
    case tav::Type::kInt16:
    case tav::Type::kByte:
      return Slot::Type::kInteger;
    case tav::Type::kDateTime:
    case tav::Type::kChars:
      break;
  }
  return Slot::Type::kText;
}

std::string Identifier(std::string name) {
  for (char& character : name) {
    if (character == '.' || character == '-' || character == ' ') character = '_';
  }
  return name;
}

RecordLayout Make(const Layout& layout) {
  const std::string model = Identifier(NamesOf(layout.model).name);
  const std::string content = Identifier(NamesOf(layout.content).name);
  RecordLayout made;
  made.table.append("records_").append(model).append("_").append(content);
  made.view.append(content).append("_").append(model);
  made.model = layout.model;
  made.kind = KindName(NamesOf(layout.content).kind);
  for (const ColumnRun& run : layout.runs) {
    for (const Entry& entry : run.entries) {
      if (entry.base == std::string_view("time")) continue;
      made.values.emplace_back(FieldOf(run, entry, {}).base, TypeOf(TypeIn(run, entry)));
    }
  }
  return made;
}

std::vector<RecordLayout> MakeAll() {
  std::vector<RecordLayout> layouts = {{kOtherRecords, "", "", {}, {}}};
  for (const std::span<const Layout> model : AllLayouts()) {
    for (const Layout& layout : model) {
      if (PeriodOf(NamesOf(layout.content).kind)) layouts.push_back(Make(layout));
    }
  }
  return layouts;
}

}  // namespace

const std::vector<RecordLayout>& RecordLayouts() {
  static const std::vector<RecordLayout> kAll = MakeAll();
  return kAll;
}

const RecordLayout& RecordLayoutOf(const Section& section) {
  const Layout* layout = FindLayout(section);
  return RecordLayoutOf(layout == nullptr ? std::string(kOtherRecords) : Make(*layout).table);
}

const RecordLayout& RecordLayoutOf(const std::string& table) {
  const auto& all = RecordLayouts();
  const auto found = std::find_if(
      all.begin(), all.end(), [&](const RecordLayout& layout) { return layout.table == table; });
  return found == all.end() ? all.front() : *found;
}

}  // namespace host
