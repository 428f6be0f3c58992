// Recognising a section by its columns.
#include "host/fields/find.h"

#include <algorithm>
#include <array>

#include "host/fields/fields.h"

namespace host {
namespace {

std::size_t CountKnown(const Layout& layout, const Section& section) {
  return static_cast<std::size_t>(std::count_if(
      section.columns.begin(), section.columns.end(),
      [&](const Column& column) { return FindEntry(layout, column).entry != nullptr; }));
}

bool MayBe(const Layout& layout, const Title& title) {
  return NamesOf(layout.model).told == title.model && NamesOf(layout.content).kind == title.kind;
}

bool Describes(const Entry& entry, const ColumnRun& run, const Column& column) {
  return column.name == entry.column && column.type == TypeIn(run, entry) &&
         column.role == run.role && column.caption == CaptionOf(entry);
}

// By its words, and the field that it makes.
FoundEntry FindByField(const Layout& layout, const Section& section, std::size_t column,
                       const std::string& field) {
  const Column& known = section.columns[column];
  const UnitOf unit = UnitByShownText(section.units[column]);
  for (const ColumnRun& run : layout.runs) {
    for (const Entry& entry : run.entries) {
      const bool words = known.name == entry.column && known.caption == CaptionOf(entry);
      if (words && FieldOf(run, entry, unit).name == field) return {&entry, &run};
    }
  }
  return {};
}

std::size_t CountByFields(const Layout& layout, const Section& section,
                          const std::vector<std::string>& fields) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (FindByField(layout, section, i, fields[i]).entry != nullptr) ++count;
  }
  return count;
}

void Complete(Column& column, const FoundEntry& found) {
  if (found.entry == nullptr) return;
  column.type = TypeIn(*found.run, *found.entry);
  column.width = tav::WidthOf(column.type);
  column.role = found.run->role;
}

}  // namespace

std::span<const std::span<const Layout>> AllLayouts() {
  static const std::array kAll = {Layouts521(), Layouts522(),   Layouts523(),  Layouts521x(),
                                  Layouts721(), LayoutsK7521(), LayoutsK7523()};
  return kAll;
}

tav::Type TypeIn(const ColumnRun& run, const Entry& entry) {
  return run.type == ColumnRun::kAsIs ? entry.type : run.type;
}

const char* CaptionOf(const Entry& entry) {
  return entry.caption == nullptr ? entry.column : entry.caption;
}

FoundEntry FindEntry(const Layout& layout, const Column& column) {
  for (const ColumnRun& run : layout.runs) {
    for (const Entry& entry : run.entries) {
      if (Describes(entry, run, column)) return {&entry, &run};
    }
  }
  return {};
}

// The one that knows most of the columns; columns of a later driver may be new.
const Layout* FindLayout(const Section& section) {
  const Layout* best = nullptr;
  std::size_t known = section.columns.size() / 2;
  for (const std::span<const Layout> layouts : AllLayouts()) {
    for (const Layout& layout : layouts) {
      const std::size_t count = MayBe(layout, section.title) ? CountKnown(layout, section) : 0;
      if (count <= known) continue;
      best = &layout;
      known = count;
    }
  }
  return best;
}

void CompleteColumns(Section& section, const std::vector<std::string>& fields) {
  const Layout* best = nullptr;
  std::size_t most = 0;
  for (const std::span<const Layout> layouts : AllLayouts()) {
    for (const Layout& layout : layouts) {
      const std::size_t count =
          MayBe(layout, section.title) ? CountByFields(layout, section, fields) : 0;
      if (count > most) best = &layout;
      most = std::max(most, count);
    }
  }
  if (best == nullptr) return;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    Complete(section.columns[i], FindByField(*best, section, i, fields[i]));
  }
}

}  // namespace host
