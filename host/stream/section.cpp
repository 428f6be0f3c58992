#include "host/stream/section.h"

#include <unordered_map>
#include <utility>

namespace host {
namespace {

constexpr const char* kUndescribed = "undescribed";

// How often each name stood.
class Names {
 public:
  // The name, or the first of its followers that is still free.
  std::string Distinct(const std::string& name) {
    std::string found = name;
    while (!counts_.try_emplace(found, 1).second) {
      found = name + '#' + std::to_string(++counts_[name]);
    }
    return found;
  }

 private:
  std::unordered_map<std::string, int> counts_;
};

}  // namespace

std::size_t RowWidth(const Section& section) {
  std::size_t width = 0;
  for (const Column& column : section.columns) width += column.width;
  return width;
}

bool HasUndescribedColumns(const Section& section) {
  return section.announced.value_or(0) > section.columns.size();
}

bool IsTitleKind(unsigned char byte) {
  const auto kind = static_cast<tav::TitleKind>(byte);
  switch (kind) {
    case tav::TitleKind::kCurrent:
    case tav::TitleKind::kHourly:
    case tav::TitleKind::kDaily:
    case tav::TitleKind::kMonthly:
    case tav::TitleKind::kLog:
    case tav::TitleKind::kDatabase:
      return true;
  }
  return false;
}

const char* KindName(tav::TitleKind kind) {
  switch (kind) {
    case tav::TitleKind::kCurrent:
      return "current";
    case tav::TitleKind::kHourly:
      return "hours";
    case tav::TitleKind::kDaily:
      return "days";
    case tav::TitleKind::kMonthly:
      return "months";
    case tav::TitleKind::kLog:
      return "log";
    case tav::TitleKind::kDatabase:
      return "database";
  }
  return "section";
}

std::string SectionKey(const Section& section) {
  return static_cast<char>(section.title.kind) + section.title.section + '\n';
}

std::vector<std::string> DistinctNames(const Section& section,
                                       const std::vector<std::string>& taken) {
  Names distinct;
  for (const std::string& name : taken) distinct.Distinct(name);
  std::vector<std::string> names;
  names.reserve(section.columns.size() + 1);
  for (const Column& column : section.columns) names.push_back(distinct.Distinct(column.name));
  names.push_back(distinct.Distinct(kUndescribed));
  return names;
}

}  // namespace host
