#include "host/output/follow_printer.h"

#include <algorithm>
#include <utility>

#include "host/output/csv.h"
#include "host/output/text.h"

namespace host {
namespace {

constexpr std::size_t kDateWidth = 19;
constexpr std::size_t kValueWidth = 11;

// The rows to come are not known, so columns are as wide as their kind of value usually is.
std::string Field(const Column& column, const std::string& text) {
  const std::size_t least = column.type == tav::Type::kDateTime ? kDateWidth : kValueWidth;
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

std::string TableLine(const Section& section, const Cells& cells) {
  std::string line = RowsTakeTitleTime(section) ? DateText(section.title.time) : "";
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::string text = CellText(cells[i]);
    line += i < section.columns.size() ? Field(section.columns[i], text) : "  " + text;
  }
  return line + '\n';
}

std::string JsonLine(const Section& section, JsonRow& row, const Cells& cells) {
  std::string line;
  JsonWriter writer(line, JsonWriter::Layout::kOneLine);
  writer.Open('{');
  writer.Member(R"("kind")", JsonText(KindName(section.title.kind)));
  writer.Member(R"("section")", JsonText(section.title.section));
  writer.Member(R"("clock")", JsonText(DateText(section.title.time)));
  row.Append(writer, cells);
  writer.Close('}');
  return line + '\n';
}

}  // namespace

void FollowPrinter::BeginSection(const Section& section) {
  if (format_ == Format::kJson) {
    row_.emplace(section, std::vector<std::string>{"kind", "section", "clock"});
    return;
  }
  std::string columns;
  if (format_ == Format::kTable) {
    columns = TableHeading(section);
  } else {
    AppendCsvHeader(columns, section);
  }
  std::string heading = SectionKey(section) + columns;
  if (heading == lastHeading_) return;
  if (!lastHeading_.empty()) unshown_ += '\n';
  lastHeading_ = std::move(heading);
  if (format_ == Format::kTable) unshown_ += SectionHeading(section) + '\n';
  unshown_ += columns;
}

std::string FollowPrinter::LineOf(const Section& section, const Cells& cells) {
  std::string line;
  switch (format_) {
    case Format::kTable:
      return TableLine(section, cells);
    case Format::kJson:
      return JsonLine(section, *row_, cells);
    case Format::kCsv:
      AppendCsvRow(line, section, cells);
      break;
  }
  return line;
}

void FollowPrinter::AddRow(const Section& section, const Cells& cells) {
  std::string line = LineOf(section, cells);
  if (line == lastLine_) return;
  unshown_ += line;
  lastLine_ = std::move(line);
}

void FollowPrinter::Keep() {
  if (unshown_.empty()) return;
  screen_.PrintResult(std::exchange(unshown_, {}));
}

}  // namespace host
