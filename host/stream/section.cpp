#include "host/stream/section.h"

namespace host {

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

}  // namespace host
