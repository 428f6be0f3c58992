#include "host/output/table_document.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <utility>

#include "host/output/text.h"

namespace host {
namespace {

constexpr const char* kUndescribed = "undescribed";
constexpr const char* kGap = "  ";

using Fields = std::vector<std::string>;
using Lines = std::vector<Fields>;

std::vector<std::size_t> Widths(const Lines& lines) {
  std::vector<std::size_t> widths;
  for (const Fields& fields : lines) {
    widths.resize(std::max(widths.size(), fields.size()));
    for (std::size_t i = 0; i < fields.size(); ++i) {
      widths[i] = std::max(widths[i], DisplayWidth(fields[i]));
    }
  }
  return widths;
}

// Empty fields at the end, which a cut row has, are left out.
Fields FieldsOf(const Cells& cells) {
  Fields fields;
  for (const Cell& cell : cells) fields.push_back(CellText(cell));
  while (!fields.empty() && fields.back().empty()) fields.pop_back();
  return fields;
}

// Fields from leftEnd to rightEnd are aligned on the right.
std::string Join(const Fields& fields, const std::vector<std::size_t>& widths, std::size_t leftEnd,
                 std::size_t rightEnd) {
  std::string line;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    line += kGap;
    if (i >= leftEnd && i < rightEnd) {
      line += PadLeft(fields[i], widths[i]);
    } else {
      // The widest field of all rows does not lengthen what ends each of them.
      line += PadRight(fields[i], i + 1 < fields.size() ? widths[i] : 0);
    }
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line + '\n';
}

std::string OtherThanName(const std::string& text, const Column& column) {
  return text == column.name ? std::string() : text;
}

Lines Headings(const Section& section) {
  Lines lines(2);
  for (const Column& column : section.columns) {
    lines[0].push_back(column.name);
    lines[1].push_back(OtherThanName(column.unit, column));
  }
  return lines;
}

}  // namespace

TableDocument::TableDocument(std::size_t maxRows, Screen& screen)
    : mostHead_(maxRows == 0 ? std::numeric_limits<std::size_t>::max() : (maxRows + 1) / 2),
      mostTail_(maxRows / 2),
      screen_(screen) {}

void TableDocument::BeginSection(const Section&) {
  count_ = 0;
  head_.clear();
  tail_.clear();
}

void TableDocument::AddRow(const Section&, const Cells& cells) {
  ++count_;
  Fields fields = FieldsOf(cells);
  if (head_.size() < mostHead_) {
    head_.push_back(std::move(fields));
    return;
  }
  tail_.push_back(std::move(fields));
  if (tail_.size() > mostTail_) tail_.pop_front();
}

// Name, value, unit and caption of each column below each other.
std::string TableDocument::List(const Section& section) const {
  Lines lines;
  Fields values = head_.front();
  values.resize(std::max(values.size(), section.columns.size()));
  for (std::size_t i = 0; i < section.columns.size(); ++i) {
    const Column& column = section.columns[i];
    lines.push_back({column.name, values[i], OtherThanName(column.unit, column),
                     OtherThanName(column.caption, column)});
  }
  if (values.size() > section.columns.size()) lines.push_back({kUndescribed, values.back()});
  const std::vector<std::size_t> widths = Widths(lines);
  std::string text;
  for (const Fields& line : lines) text += Join(line, widths, line.size(), line.size());
  return text;
}

// Names and units above the rows; the two halves of a shortened table are aligned with each other.
std::string TableDocument::Table(const Section& section) const {
  Lines lines = Headings(section);
  const std::size_t gap = lines.size() + head_.size();
  lines.insert(lines.end(), head_.begin(), head_.end());
  lines.insert(lines.end(), tail_.begin(), tail_.end());
  const std::vector<std::size_t> widths = Widths(lines);
  const std::size_t left = count_ - head_.size() - tail_.size();
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i == gap && left > 0) text += fmt::format("  ... {} more ...\n", left);
    text += Join(lines[i], widths, 1, section.columns.size());
  }
  return text;
}

std::string TableDocument::Text(const Section& section) const {
  const std::string heading = SectionHeading(section);
  const tav::TitleKind kind = section.title.kind;
  const bool single = kind == tav::TitleKind::kDatabase || kind == tav::TitleKind::kCurrent;
  if (count_ == 1 && single) return heading + '\n' + List(section);
  const std::string counted = heading + " (" + CountOf(count_, "row") + ")\n";
  return count_ == 0 ? counted : counted + Table(section);
}

void TableDocument::EndSection(const Section& section) {
  if (!text_.empty()) text_ += '\n';
  text_ += Text(section);
}

void TableDocument::EndRun(const RunEnd&) { screen_.PrintResult(text_); }

}  // namespace host
