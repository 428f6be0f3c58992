#include "host/output/kept_folder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>

#include "host/fields/find.h"
#include "host/output/csv_reader.h"
#include "host/output/reading_folder.h"
#include "host/reading/periods.h"
#include "host/system/clock.h"
#include "host/system/files.h"

namespace host {
namespace {

using tav::TitleKind;

std::optional<TitleKind> KindByName(const std::string& name) {
  constexpr std::array kKinds = {TitleKind::kDatabase, TitleKind::kCurrent, TitleKind::kMonthly,
                                 TitleKind::kDaily,    TitleKind::kHourly,  TitleKind::kLog};
  const auto* found = std::find_if(kKinds.begin(), kKinds.end(),
                                   [&](TitleKind kind) { return name == KindName(kind); });
  return found == kKinds.end() ? std::nullopt : std::optional(*found);
}

template <class Number>
Cell NumberIn(std::string text, char decimal) {
  std::replace(text.begin(), text.end(), decimal, '.');
  Number number{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = result.ec == std::errc() && result.ptr == text.data() + text.size();
  return whole ? Cell(number) : Cell(text);
}

Cell CellIn(const std::string& text, tav::Type type, char decimal) {
  if (text.empty()) return {};
  switch (type) {
    case tav::Type::kFloat:
      return NumberIn<float>(text, decimal);
    case tav::Type::kDouble:
      return NumberIn<double>(text, decimal);
    case tav::Type::kInt32:
    case tav::Type::kInt16:
    case tav::Type::kByte:
      return NumberIn<std::uint32_t>(text, decimal);
    case tav::Type::kDateTime: {
      const std::optional<TAVDT> time = ParseTime(text);
      return time ? Cell(*time) : Cell(text);
    }
    case tav::Type::kChars:
      break;
  }
  return text;
}

// Tells the sections of a folder.
class Folder {
 public:
  Folder(std::filesystem::path path, RunListener& listener)
      : path_(std::move(path)),
        listener_(listener),
        index_(path_ / kIndexName),
        columns_(path_ / kColumnsName) {
    for (const CsvLine& line : columns_.Lines()) AddColumn(line);
  }

  RunEnd Tell() {
    RunEnd end;
    listener_.BeginRun({std::nullopt, PathText(path_), LocalNow()});
    for (const CsvLine& line : index_.Lines()) {
      const std::string file = index_.Field(line, "file");
      if (!file.empty()) TellFile(line, file, end.counts);
    }
    if (end.counts.sections == 0) {
      end.ending = Ending::kFailed;
      end.reason = PathText(path_) + " holds no section of an instrument";
    }
    listener_.EndRun(end);
    return end;
  }

 private:
  struct Known {
    std::vector<Column> columns;
    std::vector<std::string> units;
    std::vector<std::string> fields;
  };

  void AddColumn(const CsvLine& line) {
    Known& known = known_[columns_.Field(line, "file")];
    Column column;
    column.name = columns_.Field(line, "driver_name");
    column.caption = columns_.Field(line, "caption");
    column.unit = columns_.Field(line, "driver_unit");
    column.type = tav::Type::kChars;
    column.role = tav::Role::kValue;
    column.group = tav::kDefaultGroup;
    known.columns.push_back(column);
    known.units.push_back(columns_.Field(line, "unit"));
    known.fields.push_back(columns_.Field(line, "field"));
  }

  Section SectionOf(const CsvLine& line, const std::string& file) const {
    const auto kind = KindByName(index_.Field(line, "kind"));
    const auto known = known_.find(file);
    if (!kind || known == known_.end()) {
      throw std::runtime_error(PathText(path_) + ": its index and its columns do not fit together");
    }
    Section section;
    section.title = {*kind,
                     index_.Field(line, "model"),
                     index_.Field(line, "version"),
                     index_.Field(line, "number"),
                     index_.Field(line, "section"),
                     ParseTime(index_.Field(line, "clock")).value_or(TAVDT{})};
    section.columns = known->second.columns;
    section.units = known->second.units;
    CompleteColumns(section, known->second.fields);
    return section;
  }

  // A name leads nowhere but into the folder.
  std::filesystem::path PathIn(const std::string& file) const {
    return path_ / PathOf(file).filename();
  }

  void TellFile(const CsvLine& line, const std::string& file, StreamCounts& counts) {
    Section section = SectionOf(line, file);
    const CsvTable table(PathIn(file));
    const bool clocks = section.title.kind == TitleKind::kCurrent;
    ++counts.sections;
    listener_.BeginSection(section);
    for (const CsvLine& row : table.Lines()) {
      if (clocks) BeginAgain(section, row);
      listener_.AddRow(section, CellsOf(row, section, clocks ? 1 : 0, table.Dialect().decimal));
      ++counts.rows;
    }
    listener_.EndSection(section);
  }

  // Current values have a clock each.
  void BeginAgain(Section& section, const CsvLine& row) {
    const auto clock = row.empty() ? std::nullopt : ParseTime(row.front());
    if (!clock || DateText(*clock) == DateText(section.title.time)) return;
    listener_.EndSection(section);
    section.title.time = *clock;
    listener_.BeginSection(section);
  }

  static Cells CellsOf(const CsvLine& row, const Section& section, std::size_t first,
                       char decimal) {
    Cells cells;
    for (std::size_t i = 0; i < section.columns.size(); ++i) {
      const std::size_t place = first + i;
      cells.push_back(place < row.size() ? CellIn(row[place], section.columns[i].type, decimal)
                                         : Cell{});
    }
    return cells;
  }

  std::filesystem::path path_;
  RunListener& listener_;
  CsvTable index_;
  CsvTable columns_;
  std::map<std::string, Known> known_;  // by file
};

}  // namespace

RunEnd RunKeptFolder(const std::filesystem::path& folder, RunListener& listener) {
  return Folder(folder, listener).Tell();
}

}  // namespace host
