#include "host/output/csv.h"

#include <algorithm>

namespace host {
namespace {

constexpr const char* kClock = "clock";
constexpr const char* kUndescribed = "undescribed";

// Names of a header: of the columns, and of what stands before and after them.
template <class Each, class NameOf>
std::vector<std::string> Header(const Section& section, const Each& each, NameOf nameOf) {
  std::vector<std::string> names;
  names.reserve(each.size() + 2);
  if (RowsTakeTitleTime(section)) names.emplace_back(kClock);
  for (const auto& column : each) names.push_back(nameOf(column));
  if (HasUndescribedColumns(section)) names.emplace_back(kUndescribed);
  return names;
}

std::string DriverHeading(const Column& column) {
  std::string heading = column.name;
  if (!column.caption.empty() && column.caption != column.name) {
    heading += " (" + column.caption + ")";
  }
  if (!column.unit.empty() && column.unit != column.name) heading += ", " + column.unit;
  return heading;
}

void AppendCsvCell(std::string& out, const Cell& cell, const CsvDialect& dialect) {
  if (const auto* text = std::get_if<std::string>(&cell)) {
    return AppendCsvField(out, *text, dialect);
  }
  const auto begin = static_cast<std::ptrdiff_t>(out.size());
  AppendCell(out, cell);  // numbers and dates have nothing to quote
  if (std::holds_alternative<float>(cell) || std::holds_alternative<double>(cell)) {
    std::replace(out.begin() + begin, out.end(), '.', dialect.decimal);
  }
}

}  // namespace

void AppendCsvField(std::string& out, const std::string& text, const CsvDialect& dialect) {
  const char special[] = {dialect.separator, '"', '\r', '\n', '\0'};
  if (text.find_first_of(special) == std::string::npos) {
    out += text;
    return;
  }
  out += '"';
  for (const char character : text) {
    if (character == '"') out += '"';
    out += character;
  }
  out += '"';
}

void AppendCsvLine(std::string& out, const std::vector<std::string>& fields,
                   const CsvDialect& dialect) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) out += dialect.separator;
    AppendCsvField(out, fields[i], dialect);
  }
  out += dialect.lineEnd;
}

bool RowsTakeTitleTime(const Section& section) {
  return section.title.kind == tav::TitleKind::kCurrent;
}

void AppendCsvHeader(std::string& out, const Section& section, const std::vector<Field>& fields,
                     const CsvDialect& dialect) {
  const auto name = [](const Field& field) { return field.name; };
  AppendCsvLine(out, Header(section, fields, name), dialect);
}

void AppendDriverHeader(std::string& out, const Section& section, const CsvDialect& dialect) {
  AppendCsvLine(out, Header(section, section.columns, DriverHeading), dialect);
}

void AppendCsvRow(std::string& out, const Section& section, const TAVDT& clock, const Cells& cells,
                  const CsvDialect& dialect) {
  const bool takesClock = RowsTakeTitleTime(section);
  if (takesClock) AppendDate(out, clock);
  const std::size_t count = std::max(cells.size(), section.columns.size());
  for (std::size_t i = 0; i < count; ++i) {
    if (takesClock || i > 0) out += dialect.separator;
    if (i < cells.size()) AppendCsvCell(out, cells[i], dialect);
  }
  out += dialect.lineEnd;
}

}  // namespace host
