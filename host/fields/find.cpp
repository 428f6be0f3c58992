// Recognising a section by its columns.
#include "host/fields/find.h"

#include <algorithm>
#include <array>

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

}  // namespace host
