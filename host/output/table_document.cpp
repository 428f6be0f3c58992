#include "host/output/table_document.h"

#include <utility>

#include "host/output/csv.h"
#include "host/output/folded_table.h"
#include "host/output/rounded.h"
#include "host/output/text.h"

namespace host {
namespace {

constexpr const char* kUndescribed = "undescribed";
constexpr int kTableDigits = 6;
// More than single precision has: only what a conversion made long is rounded in a list.
constexpr int kListDigits = 12;
constexpr std::size_t kMostRanges = 12;

// Field, value, unit and caption of each column below each other.
std::string List(const GatheredSection& gathered) {
  const Cells& cells = gathered.rows.front().cells;
  const std::vector<Column>& columns = gathered.section.columns;
  std::vector<TextLine> lines;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Field& field = gathered.fields[i];
    const std::string value = i < cells.size() ? RoundedText(cells[i], kListDigits) : "";
    lines.push_back({field.base, value, field.unit.text, columns[i].caption});
  }
  if (cells.size() > columns.size()) lines.push_back({kUndescribed, CellText(cells.back())});
  return ListText(lines);
}

// The driver's names, which are those that the instruments show, above the true units.
std::vector<TextLine> Headings(const GatheredSection& gathered, bool clock) {
  std::vector<TextLine> lines(2);
  if (clock) lines = {{"clock"}, {""}};
  for (std::size_t i = 0; i < gathered.fields.size(); ++i) {
    lines[0].push_back(gathered.section.columns[i].name);
    lines[1].push_back(gathered.fields[i].unit.text);
  }
  return lines;
}

TextLine TextsOf(const GatheredRow& row, bool clock) {
  TextLine texts;
  texts.reserve(row.cells.size() + 1);
  if (clock) texts.push_back(DateText(row.clock));
  for (const Cell& cell : row.cells) texts.push_back(RoundedText(cell, kTableDigits));
  return texts;
}

bool BeginsWithDate(const Section& section) {
  return !section.columns.empty() && section.columns.front().type == tav::Type::kDateTime;
}

bool IsList(const GatheredSection& gathered) {
  const tav::TitleKind kind = gathered.section.title.kind;
  return gathered.rows.size() == 1 &&
         (kind == tav::TitleKind::kDatabase || kind == tav::TitleKind::kCurrent);
}

}  // namespace

std::string TableDocument::Table(const GatheredSection& gathered) const {
  const std::vector<GatheredRow>& rows = gathered.rows;
  const bool clock = RowsTakeTitleTime(gathered.section);
  const bool whole = maxRows_ == 0 || rows.size() <= maxRows_;
  const std::size_t head = whole ? rows.size() : (maxRows_ + 1) / 2;
  const std::size_t tail = whole ? rows.size() : rows.size() - maxRows_ / 2;
  FoldedTable table;
  table.headings = Headings(gathered, clock);
  for (std::size_t i = 0; i < head; ++i) table.rows.push_back(TextsOf(rows[i], clock));
  for (std::size_t i = tail; i < rows.size(); ++i) table.rows.push_back(TextsOf(rows[i], clock));
  table.leftOut = tail - head;
  table.leftOutAt = head;
  table.keyed = clock || BeginsWithDate(gathered.section);
  table.width = width_;
  return host::TextOf(table);
}

std::string TableDocument::Lines(const SectionAccount& account, const std::string& before) const {
  std::string text;
  const std::size_t most = maxRows_ == 0 ? kAllRanges : kMostRanges;
  for (const std::string& line : AccountLines(account, most)) text += before + line + '\n';
  return text;
}

std::string TableDocument::TextOf(const GatheredSection& gathered) const {
  std::string text = SectionHeading(gathered.section);
  if (IsList(gathered)) {
    text += '\n' + List(gathered);
  } else {
    text += " (" + CountOf(gathered.rows.size(), "row") + ")\n";
    if (!gathered.rows.empty()) text += Table(gathered);
  }
  return gathered.account ? text + Lines(*gathered.account, "  ") : text;
}

std::string TableDocument::NeverCame(const GatheredRun& run) const {
  std::string text;
  for (const SectionAccount& account : run.neverCame) {
    text += Lines(account, SectionName(account.kind, account.section) + ": ");
  }
  return text.empty() ? text : '\n' + text;
}

void TableDocument::Show(const GatheredRun& run) {
  std::string text;
  for (const GatheredSection& gathered : run.sections) {
    if (!text.empty()) text += '\n';
    text += TextOf(gathered);
  }
  text += NeverCame(run);
  const std::string warning = ClockWarning(run.end);
  if (!warning.empty()) text += '\n' + warning + '\n';
  if (!run.sections.empty()) text += std::string("\ntimes: ") + kTimes + '\n';
  screen_.PrintResult(text);
}

}  // namespace host
