#include "host/output/gatherer.h"

#include <algorithm>
#include <exception>
#include <set>
#include <tuple>
#include <utility>

namespace host {
namespace {

bool IsArchive(tav::TitleKind kind) {
  return kind == tav::TitleKind::kHourly || kind == tav::TitleKind::kDaily ||
         kind == tav::TitleKind::kMonthly;
}

Cells WithoutEnd(const Cells& cells) {
  auto end = cells.end();
  while (end != cells.begin() && std::holds_alternative<std::monostate>(*std::prev(end))) --end;
  return {cells.begin(), end};
}

bool IsFilled(const Cell& cell) {
  const auto* text = std::get_if<std::string>(&cell);
  return text == nullptr ? !std::holds_alternative<std::monostate>(cell) : !text->empty();
}

auto CountFilled(const Cells& cells) { return std::count_if(cells.begin(), cells.end(), IsFilled); }

// The place of the column that an archive's rows are sorted by; the number of columns when there is
// none.
std::size_t DateColumn(const Section& section) {
  const auto found =
      std::find_if(section.columns.begin(), section.columns.end(),
                   [](const Column& column) { return column.type == tav::Type::kDateTime; });
  return static_cast<std::size_t>(found - section.columns.begin());
}

auto DateAt(const GatheredRow& row, std::size_t column) {
  const TAVDT* date = column < row.cells.size() ? std::get_if<TAVDT>(&row.cells[column]) : nullptr;
  const TAVDT time = date == nullptr ? TAVDT{} : *date;
  // Rows without a date stand last.
  return std::tuple(date == nullptr, unsigned{time.year}, time.month, time.day, time.hour,
                    time.minute, time.second);
}

bool IsSameText(const GatheredRow& left, const GatheredRow& right) {
  return std::equal(
      left.cells.begin(), left.cells.end(), right.cells.begin(), right.cells.end(),
      [](const Cell& one, const Cell& other) { return CellText(one) == CellText(other); });
}

// A stream that was kept may hold a record twice, as it came over the line.
void SortByDate(GatheredSection& gathered) {
  const std::size_t column = DateColumn(gathered.section);
  auto& rows = gathered.rows;
  std::stable_sort(rows.begin(), rows.end(), [column](const auto& left, const auto& right) {
    return DateAt(left, column) < DateAt(right, column);
  });
  const auto end = std::unique(rows.begin(), rows.end(), [column](const auto& l, const auto& r) {
    return DateAt(l, column) == DateAt(r, column) && IsSameText(l, r);
  });
  rows.erase(end, rows.end());
}

// The same for what has no dates to go by.
void DropRepeated(GatheredSection& gathered) {
  std::set<std::string> seen;
  std::erase_if(gathered.rows, [&seen](const GatheredRow& row) {
    std::string text = DateText(row.clock);
    for (const Cell& cell : row.cells) AppendCell(text += '\n', cell);
    return !seen.insert(std::move(text)).second;
  });
}

bool IsOf(const SectionAccount& account, const GatheredSection& gathered) {
  return account.kind == gathered.section.title.kind &&
         account.section == gathered.section.title.section;
}

// Into the order in which the instrument is read; what came late stands where it belongs.
void SortAsRead(GatheredRun& run) {
  const auto& accounts = run.end.accounts;
  const auto place = [&](const GatheredSection& section) {
    return std::find_if(accounts.begin(), accounts.end(),
                        [&](const SectionAccount& each) { return IsOf(each, section); });
  };
  std::stable_sort(run.sections.begin(), run.sections.end(),
                   [&](const auto& left, const auto& right) { return place(left) < place(right); });
}

// An account belongs to the first section of its name.
void SpreadAccounts(GatheredRun& run) {
  for (const SectionAccount& account : run.end.accounts) {
    const auto of = std::find_if(run.sections.begin(), run.sections.end(), [&](const auto& each) {
      return IsOf(account, each) && !each.account.has_value();
    });
    if (of == run.sections.end()) {
      run.neverCame.push_back(account);
    } else {
      of->account = account;
    }
  }
}

}  // namespace

std::string GatheringKey(const Section& section) {
  std::string key = SectionKey(section);
  if (section.title.kind == tav::TitleKind::kDatabase) return key;
  for (const Column& column : section.columns) {
    key += static_cast<char>(column.type);
    key += static_cast<char>(column.width);
    key += column.name + '\n';
  }
  for (const std::string& unit : section.units) key += unit + '\n';
  return key;
}

void Gatherer::Add(std::unique_ptr<Document> document) {
  Add(*document);
  owned_.push_back(std::move(document));
}

void Gatherer::BeginRun(const Run& run) {
  view_.BeginRun(run);
  run_.settings = run.settings;
  run_.line = run.line;
}

void Gatherer::BeginSection(const Section& section) {
  view_.See(section);
  const auto [place, isNew] = places_.try_emplace(GatheringKey(section), run_.sections.size());
  open_ = place->second;
  again_ = !isNew;
  if (isNew) run_.sections.push_back({section, {}, {}, {}});
}

void Gatherer::AddRow(const Section& section, const Cells& cells) {
  view_.See(section, cells);
  GatheredSection& gathered = run_.sections[open_];
  const bool database = section.title.kind == tav::TitleKind::kDatabase;
  if (database && again_ && !gathered.rows.empty()) {
    Renew(gathered, section, WithoutEnd(cells));
  } else {
    gathered.rows.push_back({section.title.time, WithoutEnd(cells)});
  }
}

void Gatherer::Renew(GatheredSection& database, const Section& section, Cells cells) const {
  if (CountFilled(cells) < CountFilled(database.rows.front().cells)) return;
  database.section = section;
  database.rows.assign(1, {section.title.time, std::move(cells)});
}

void Gatherer::Finish(GatheredSection& gathered) const {
  if (IsArchive(gathered.section.title.kind)) {
    SortByDate(gathered);
  } else {
    DropRepeated(gathered);
  }
  ShownColumns columns = view_.Columns(gathered.section);
  Cells scratch;
  if (columns.converted) {
    for (GatheredRow& row : gathered.rows) row.cells = columns.In(row.cells, scratch);
  }
  gathered.fields = std::move(columns.fields);
}

void Gatherer::ShowAll() const {
  std::exception_ptr first;
  for (Document& document : documents_) {
    try {
      document.Show(run_);
    } catch (const std::exception&) {
      if (!first) first = std::current_exception();
    }
  }
  if (first) std::rethrow_exception(first);
}

void Gatherer::EndRun(const RunEnd& end) {
  for (GatheredSection& gathered : run_.sections) Finish(gathered);
  run_.end = end;
  SortAsRead(run_);
  SpreadAccounts(run_);
  ShowAll();
}

}  // namespace host
