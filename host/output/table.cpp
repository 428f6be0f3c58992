#include "host/output/table.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "host/stream/cell.h"

namespace host {
namespace {

constexpr const char* kUndescribed = "undescribed";
constexpr const char* kGap = "  ";

struct Line {
  std::vector<std::string> fields;
};

using Lines = std::vector<Line>;

std::vector<std::size_t> Widths(const Lines& lines) {
  std::vector<std::size_t> widths;
  for (const Line& line : lines) {
    widths.resize(std::max(widths.size(), line.fields.size()));
    for (std::size_t i = 0; i < line.fields.size(); ++i) {
      widths[i] = std::max(widths[i], DisplayWidth(line.fields[i]));
    }
  }
  return widths;
}

// leftAligned: the first fields of a line, which are texts.
std::string Join(const Line& line, const std::vector<std::size_t>& widths,
                 std::size_t leftAligned) {
  std::string text;
  for (std::size_t i = 0; i < line.fields.size(); ++i) {
    text += kGap;
    text +=
        i < leftAligned ? PadRight(line.fields[i], widths[i]) : PadLeft(line.fields[i], widths[i]);
  }
  text.erase(text.find_last_not_of(' ') + 1);
  return text + '\n';
}

// Name, value, unit and caption of each column below each other.
std::string FormatList(const Section& section, const Bytes& row) {
  Lines lines;
  const std::vector<Cell> cells = DecodeRow(section, row);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i == section.columns.size()) {
      lines.push_back({{kUndescribed, CellText(cells[i])}});
      continue;
    }
    const Column& column = section.columns[i];
    const std::string caption = column.caption == column.name ? "" : column.caption;
    const std::string unit = column.unit == column.name ? "" : column.unit;
    lines.push_back({{column.name, CellText(cells[i]), unit, caption}});
  }
  const std::vector<std::size_t> widths = Widths(lines);
  std::string text;
  for (const Line& line : lines) text += Join(line, widths, line.fields.size());
  return text;
}

Line RowLine(const Section& section, const Bytes& row) {
  Line line;
  for (const Cell& cell : DecodeRow(section, row)) line.fields.push_back(CellText(cell));
  return line;
}

// Names and units above the rows; the two halves of a shortened table are aligned with each other.
std::string FormatRows(const KeptSection& kept, std::size_t maxRows) {
  const std::size_t count = kept.rows.size();
  const bool all = maxRows == 0 || count <= maxRows;
  const std::size_t head = all ? count : (maxRows + 1) / 2;
  const std::size_t tail = all ? 0 : maxRows - head;
  Lines lines(2);
  for (const Column& column : kept.section.columns) {
    lines[0].fields.push_back(column.name);
    lines[1].fields.push_back(column.unit == column.name ? "" : column.unit);
  }
  for (std::size_t i = 0; i < head; ++i) lines.push_back(RowLine(kept.section, kept.rows[i]));
  for (std::size_t i = count - tail; i < count; ++i) {
    lines.push_back(RowLine(kept.section, kept.rows[i]));
  }
  const std::vector<std::size_t> widths = Widths(lines);
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!all && i == head + 2) text += fmt::format("  ... {} more ...\n", count - head - tail);
    text += Join(lines[i], widths, 1);
  }
  return text;
}

bool IsList(const KeptSection& kept) {
  const char kind = kept.section.title.kind;
  return kept.rows.size() == 1 && (kind == 'B' || kind == 'O');
}

}  // namespace

std::size_t DisplayWidth(const std::string& utf8) {
  return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char character) {
    return (static_cast<unsigned char>(character) & 0xC0U) != 0x80U;
  }));
}

std::string CountOf(std::size_t count, const char* what) {
  return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

std::string PadRight(const std::string& text, std::size_t width) {
  return text + std::string(width - std::min(width, DisplayWidth(text)), ' ');
}

std::string PadLeft(const std::string& text, std::size_t width) {
  return std::string(width - std::min(width, DisplayWidth(text)), ' ') + text;
}

std::string SectionHeading(const Section& section) {
  const Title& title = section.title;
  return fmt::format("{}{}{}: {} {}, number {}, clock {}", KindName(title.kind),
                     title.section.empty() ? "" : " ", title.section, title.model, title.version,
                     title.number, DateText(title.time));
}

std::string FormatTable(const KeptSection& kept, std::size_t maxRows) {
  std::string text = SectionHeading(kept.section);
  if (IsList(kept)) return text + '\n' + FormatList(kept.section, kept.rows.front());
  text += " (" + CountOf(kept.rows.size(), "row") + ")\n";
  return kept.rows.empty() ? text : text + FormatRows(kept, maxRows);
}

}  // namespace host
