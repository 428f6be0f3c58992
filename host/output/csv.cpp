#include "host/output/csv.h"

#include <string_view>

namespace host {
namespace {

void Separate(std::string& out, bool& first) {
  if (!first) out += ',';
  first = false;
}

}  // namespace

void AppendCsvField(std::string& out, const std::string& text) {
  constexpr std::string_view kSpecial = ",\"\r\n";
  if (text.find_first_of(kSpecial) == std::string::npos) {
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

std::string ColumnHeading(const Column& column) {
  std::string heading = column.name;
  if (!column.caption.empty() && column.caption != column.name) {
    heading += " (" + column.caption + ")";
  }
  if (!column.unit.empty() && column.unit != column.name) heading += ", " + column.unit;
  return heading;
}

bool RowsTakeTitleTime(const Section& section) {
  return section.title.kind == tav::TitleKind::kCurrent;
}

void AppendCsvHeader(std::string& out, const Section& section) {
  bool first = true;
  if (RowsTakeTitleTime(section)) {
    Separate(out, first);
    out += "clock";
  }
  for (const Column& column : section.columns) {
    Separate(out, first);
    AppendCsvField(out, ColumnHeading(column));
  }
  if (HasUndescribedColumns(section)) {
    Separate(out, first);
    out += "undescribed bytes";
  }
  out += '\n';
}

void AppendCsvRow(std::string& out, const Section& section, const Cells& cells) {
  bool first = true;
  if (RowsTakeTitleTime(section)) {
    Separate(out, first);
    AppendDate(out, section.title.time);
  }
  for (const Cell& cell : cells) {
    Separate(out, first);
    if (const auto* text = std::get_if<std::string>(&cell)) {
      AppendCsvField(out, *text);
    } else {
      AppendCell(out, cell);  // numbers and dates have nothing to quote
    }
  }
  out += '\n';
}

}  // namespace host
