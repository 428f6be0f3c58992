#include "host/output/follow_printer.h"

#include <algorithm>

#include "host/output/csv.h"
#include "host/output/json.h"
#include "host/output/table.h"

namespace host {
namespace {

constexpr std::size_t kDateWidth = 19;
constexpr std::size_t kValueWidth = 11;

// The rows to come are not known, so columns are as wide as their kind of value usually is.
std::string Field(const Column& column, const std::string& text) {
  const std::size_t least = column.type == 't' ? kDateWidth : kValueWidth;
  return "  " + PadLeft(text, std::max(least, DisplayWidth(column.name)));
}

std::string TableHeading(const Section& section) {
  const bool clock = RowsTakeTitleTime(section);
  std::string names = clock ? PadRight("clock", kDateWidth) : "";
  std::string units = clock ? PadRight("", kDateWidth) : "";
  for (const Column& column : section.columns) {
    names += Field(column, column.name);
    units += Field(column, column.unit);
  }
  return names + '\n' + units + '\n';
}

std::string TableLine(const Section& section, ByteView row) {
  std::string line = RowsTakeTitleTime(section) ? DateText(section.title.time) : "";
  const std::vector<Cell> cells = DecodeRow(section, row);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::string text = CellText(cells[i]);
    line += i < section.columns.size() ? Field(section.columns[i], text) : "  " + text;
  }
  return line + '\n';
}

std::string JsonLine(const Section& section, ByteView row) {
  nlohmann::ordered_json json = {{"kind", KindName(section.title.kind)},
                                 {"section", section.title.section},
                                 {"clock", DateText(section.title.time)}};
  json.update(RowJson(section, row));
  return json.dump() + '\n';
}

}  // namespace

void FollowPrinter::Begin(const Section& section) {
  if (format_ == Format::kJson) return;
  std::string columns;
  if (format_ == Format::kTable) {
    columns = TableHeading(section);
  } else {
    AppendCsvHeader(columns, section);
  }
  const std::string heading = section.title.kind + section.title.section + '\n' + columns;
  if (heading == lastHeading_) return;
  const bool first = lastHeading_.empty();
  lastHeading_ = heading;
  const std::string above = format_ == Format::kTable ? SectionHeading(section) + '\n' : "";
  print_((first ? "" : "\n") + above + columns);
}

std::string FollowPrinter::LineOf(const Section& section, ByteView row) const {
  std::string line;
  switch (format_) {
    case Format::kTable:
      return TableLine(section, row);
    case Format::kJson:
      return JsonLine(section, row);
    case Format::kCsv:
      AppendCsvRow(line, section, row);
      break;
  }
  return line;
}

void FollowPrinter::AddRow(const Section& section, ByteView row) {
  std::string line = LineOf(section, row);
  if (line == lastLine_) return;
  print_(line);
  lastLine_ = std::move(line);
}

}  // namespace host
