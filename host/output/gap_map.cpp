#include "host/output/gap_map.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "host/output/gap_list.h"
#include "host/output/ranges.h"
#include "host/output/text.h"

namespace host {
namespace {

struct Glyph {
  RecordState state;
  const char* utf8;
  const char* ascii;
};

// In the order of the states.
constexpr std::array kGlyphs = {
    Glyph{RecordState::kKept, "█", "#"}, Glyph{RecordState::kMissing, "×", "x"},
    Glyph{RecordState::kAbsent, "░", "-"}, Glyph{RecordState::kUnasked, "·", "."}};
constexpr std::size_t kLabel = 10;  // "  2016-08 "
constexpr PeriodNumber kHours = 24;
constexpr PeriodNumber kMonths = 12;

// A map: where each period stands, and what is written beside and above it.
struct Grid {
  struct Column {
    std::string group;  // "2016-08" above the first of its columns
    std::string label;  // "07", one digit above the other
  };
  std::vector<std::string> rows;
  std::vector<Column> columns;
  // Period in a row and a column; one that is not on the map when there is none.
  PeriodNumber (*at)(const Grid& grid, std::size_t row, std::size_t column);
  PeriodNumber origin = 0;  // what the first column, or else the first row, begins with
};

std::string TwoDigits(PeriodNumber number) { return fmt::format("{:02}", number); }

std::string MonthText(const TAVDT& date) { return RecordDateText(tav::TitleKind::kMonthly, date); }

PeriodNumber DayOf(PeriodNumber hour) {
  return NumberOf(Period::kDay, StartOf(Period::kHour, hour)).value_or(0);
}

Grid HourGrid(const PeriodRange& hours) {
  Grid grid;
  grid.origin = DayOf(hours.first);
  for (PeriodNumber hour = 0; hour < kHours; ++hour) grid.rows.push_back(TwoDigits(hour));
  for (PeriodNumber day = grid.origin; day <= DayOf(hours.last); ++day) {
    const TAVDT date = StartOf(Period::kDay, day);
    grid.columns.push_back({MonthText(date), TwoDigits(date.day)});
  }
  grid.at = [](const Grid& of, std::size_t row, std::size_t column) {
    return (of.origin + static_cast<PeriodNumber>(column)) * kHours +
           static_cast<PeriodNumber>(row);
  };
  return grid;
}

PeriodNumber MonthOf(PeriodNumber day) {
  return NumberOf(Period::kMonth, StartOf(Period::kDay, day)).value_or(0);
}

// -1: the month has no such day.
PeriodNumber DayInMonth(const Grid& grid, std::size_t row, std::size_t column) {
  const PeriodNumber month = grid.origin + static_cast<PeriodNumber>(row);
  const PeriodNumber first = NumberOf(Period::kDay, StartOf(Period::kMonth, month)).value_or(0);
  const PeriodNumber day = first + static_cast<PeriodNumber>(column);
  return MonthOf(day) == month ? day : -1;
}

Grid DayGrid(const PeriodRange& days) {
  Grid grid;
  grid.origin = MonthOf(days.first);
  for (PeriodNumber month = grid.origin; month <= MonthOf(days.last); ++month) {
    grid.rows.push_back(MonthText(StartOf(Period::kMonth, month)));
  }
  for (PeriodNumber day = 1; day <= 31; ++day) grid.columns.push_back({"", TwoDigits(day)});
  grid.at = DayInMonth;
  return grid;
}

Grid MonthGrid(const PeriodRange& months) {
  Grid grid;
  grid.origin = months.first / kMonths;
  for (PeriodNumber year = grid.origin; year <= months.last / kMonths; ++year) {
    grid.rows.push_back(std::to_string(year));
  }
  for (PeriodNumber month = 1; month <= kMonths; ++month) {
    grid.columns.push_back({"", TwoDigits(month)});
  }
  grid.at = [](const Grid& of, std::size_t row, std::size_t column) {
    return (of.origin + static_cast<PeriodNumber>(row)) * kMonths +
           static_cast<PeriodNumber>(column);
  };
  return grid;
}

Grid GridOf(const Coverage& coverage) {
  switch (coverage.period) {
    case Period::kHour:
      return HourGrid(coverage.bounds);
    case Period::kDay:
      return DayGrid(coverage.bounds);
    case Period::kMonth:
      break;
  }
  return MonthGrid(coverage.bounds);
}

class Map {
 public:
  Map(const Coverage& coverage, const MapStyle& style)
      : coverage_(coverage), style_(style), grid_(GridOf(coverage)) {
    for (const CoverageRange& range : coverage.ranges) {
      states_.insert(states_.end(), SizeOf(range.periods), range.state);
    }
  }

  std::string Text() const {
    std::string text;
    const std::size_t most = style_.width > kLabel + 1 ? style_.width - kLabel : 1;
    for (std::size_t begin = 0; begin < grid_.columns.size(); begin += most) {
      if (begin > 0) text += '\n';
      text += BlockText(begin, std::min(begin + most, grid_.columns.size()));
    }
    return text;
  }

 private:
  static std::string Label(const std::string& text) { return PadRight("  " + text, kLabel); }

  // Names of groups above the columns that they begin with, where there is room.
  std::string GroupLine(std::size_t begin, std::size_t end) const {
    std::string line = Label("");
    std::string before;
    for (std::size_t i = begin; i < end; ++i) {
      const std::string& group = grid_.columns[i].group;
      const bool begins = group != before && line.size() <= kLabel + i - begin;
      before = group;
      if (!begins) continue;
      line.resize(kLabel + i - begin, ' ');
      line += group + ' ';
    }
    return line.find_first_not_of(' ') == std::string::npos ? "" : Line(line);
  }

  static std::string Line(std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    return line.append(1, '\n');
  }

  std::string DigitLine(std::size_t begin, std::size_t end, std::size_t digit) const {
    std::string line = Label("");
    for (std::size_t i = begin; i < end; ++i) line += grid_.columns[i].label[digit];
    return line.append(1, '\n');
  }

  std::string BlockText(std::size_t begin, std::size_t end) const {
    std::string text = GroupLine(begin, end) + DigitLine(begin, end, 0) + DigitLine(begin, end, 1);
    for (std::size_t row = 0; row < grid_.rows.size(); ++row) {
      std::string line = Label(grid_.rows[row]);
      for (std::size_t i = begin; i < end; ++i) line += GlyphAt(grid_.at(grid_, row, i));
      text += Line(line);
    }
    return text;
  }

  const char* GlyphAt(PeriodNumber period) const {
    const PeriodRange& bounds = coverage_.bounds;
    if (period < bounds.first || period > bounds.last) return " ";
    const RecordState state = states_[static_cast<std::size_t>(period - bounds.first)];
    const Glyph& glyph = kGlyphs[static_cast<std::size_t>(state)];
    return style_.utf8 ? glyph.utf8 : glyph.ascii;
  }

  const Coverage& coverage_;
  const MapStyle& style_;
  Grid grid_;
  std::vector<RecordState> states_;
};

std::string Legend(const MapStyle& style) {
  std::string text;
  for (const Glyph& glyph : kGlyphs) {
    if (!text.empty()) text += "   ";
    text += style.utf8 ? glyph.utf8 : glyph.ascii;
    text.append(1, ' ').append(WordOf(glyph.state));
  }
  return text.append(1, '\n');
}

std::string HeadingOf(const SectionCoverage& archive) {
  const Coverage& coverage = archive.coverage;
  return fmt::format("{}: {} of {} kept\n",
                     SectionName(archive.section.kind, archive.section.system),
                     Count(coverage, RecordState::kKept), SizeOf(coverage.bounds));
}

}  // namespace

std::string GapsMap(const std::vector<SectionCoverage>& archives, const MapStyle& style) {
  if (archives.empty()) return GapsText(archives, style.width);
  std::string text = Legend(style);
  long long instrument = 0;
  for (const SectionCoverage& archive : archives) {
    text += '\n';
    if (archive.section.instrument != instrument) text += InstrumentLine(archive.section) + '\n';
    instrument = archive.section.instrument;
    text += HeadingOf(archive);
    text += Map(archive.coverage, style).Text();
  }
  return text;
}

}  // namespace host
