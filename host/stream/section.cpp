#include "host/stream/section.h"

#include <map>

namespace host {

std::size_t RowWidth(const Section& section) {
  std::size_t width = 0;
  for (const Column& column : section.columns) width += column.width;
  return width;
}

bool HasUndescribedColumns(const Section& section) {
  return section.announced.value_or(0) > section.columns.size();
}

const char* KindName(char kind) {
  switch (kind) {
    case 'O':
      return "current";
    case 'H':
      return "hours";
    case 'D':
      return "days";
    case 'M':
      return "months";
    case 'S':
      return "log";
    case 'B':
      return "database";
    default:
      return "section";
  }
}

std::vector<std::string> DistinctNames(const Section& section) {
  std::vector<std::string> names;
  std::map<std::string, int> seen;
  for (const Column& column : section.columns) {
    const int count = ++seen[column.name];
    names.push_back(count == 1 ? column.name : column.name + "#" + std::to_string(count));
  }
  return names;
}

}  // namespace host
