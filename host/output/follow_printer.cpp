#include "host/output/follow_printer.h"

#include <algorithm>
#include <utility>

#include "host/output/rounded.h"
#include "host/output/text.h"

namespace host {
namespace {

constexpr std::size_t kDateWidth = 19;
constexpr std::size_t kValueWidth = 11;
constexpr int kDigits = 6;

// The rows to come are not known, so columns are as wide as their kind of value usually is.
std::string Padded(const Column& column, const std::string& text) {
  const std::size_t least = column.type == tav::Type::kDateTime ? kDateWidth : kValueWidth;
  return "  " + PadLeft(text, std::max(least, DisplayWidth(column.name)));
}

std::string TableHeading(const Section& section, const std::vector<Field>& fields) {
  const bool clock = RowsTakeTitleTime(section);
  std::string names = clock ? PadRight("clock", kDateWidth) : "";
  std::string units = clock ? PadRight("", kDateWidth) : "";
  for (std::size_t i = 0; i < fields.size(); ++i) {
    names += Padded(section.columns[i], section.columns[i].name);
    units += Padded(section.columns[i], fields[i].unit.text);
  }
  return names + '\n' + units + '\n';
}

std::string TableLine(const Section& section, const Cells& cells) {
  std::string line = RowsTakeTitleTime(section) ? DateText(section.title.time) : "";
  std::size_t count = cells.size();  // what a cut row lacks at its end takes no room
  while (count > 0 && std::holds_alternative<std::monostate>(cells[count - 1])) --count;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string text = RoundedText(cells[i], kDigits);
    line += i < section.columns.size() ? Padded(section.columns[i], text) : "  " + text;
  }
  return line + '\n';
}

std::string JsonLine(const Section& section, const JsonRow& row, const Cells& cells) {
  const Title& title = section.title;
  std::string line;
  JsonWriter writer(line, JsonWriter::Layout::kOneLine);
  writer.Open('{');
  writer.Member(R"("kind")", JsonText(KindName(title.kind)));
  writer.Member(R"("section")", JsonText(title.section));
  writer.Member(R"("model")", JsonText(title.model));
  writer.Member(R"("number")", JsonText(title.number));
  writer.Member(R"("clock")", JsonText(DateText(title.time)));
  row.Append(writer, cells);
  writer.Close('}');
  return line + '\n';
}

}  // namespace

std::string FollowPrinter::HeadingOf(const Section& section) const {
  if (format_ == Format::kTable) {
    return SectionHeading(section) + '\n' + TableHeading(section, columns_.fields);
  }
  std::string heading;
  AppendCsvHeader(heading, section, columns_.fields, dialect_);
  return heading;
}

void FollowPrinter::BeginSection(const Section& section) {
  view_.See(section);
  columns_ = view_.Columns(section);
  if (format_ == Format::kJson) {
    row_.emplace(columns_.fields);
    return;
  }
  // What a table says of the section changes with its clock; that is no other section.
  std::string columns;
  AppendCsvHeader(columns, section, columns_.fields, dialect_);
  std::string heading = SectionKey(section) + columns;
  if (heading == lastHeading_) return;
  if (!lastHeading_.empty()) {
    unshown_ += '\n';
  } else if (format_ == Format::kCsv) {
    unshown_ += dialect_.begin;
  }
  lastHeading_ = std::move(heading);
  unshown_ += HeadingOf(section);
}

std::string FollowPrinter::LineOf(const Section& section, const Cells& cells) const {
  std::string line;
  switch (format_) {
    case Format::kTable:
      return TableLine(section, cells);
    case Format::kJson:
      return JsonLine(section, *row_, cells);
    case Format::kCsv:
      AppendCsvRow(line, section, section.title.time, cells, dialect_);
      break;
  }
  return line;
}

void FollowPrinter::AddRow(const Section& section, const Cells& cells) {
  view_.See(section, cells);
  unshown_ += LineOf(section, columns_.In(cells, scratch_));
}

void FollowPrinter::Keep() {
  if (unshown_.empty()) return;
  screen_.PrintResult(std::exchange(unshown_, {}));
}

}  // namespace host
