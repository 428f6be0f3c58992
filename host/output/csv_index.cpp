#include "host/output/csv_index.h"

#include "host/output/ranges.h"
#include "host/output/text.h"

namespace host {
namespace {

using Line = std::vector<std::string>;

const Line kIndex = {"file",
                     "kind",
                     "section",
                     "model",
                     "version",
                     "number",
                     "clock",
                     "expected",
                     "received",
                     "not_held",
                     "failed",
                     "missing",
                     "clock_difference_s",
                     "times"};
const Line kColumns = {"file", "column",      "field",   "quantity",   "pipe",
                       "unit", "driver_name", "caption", "driver_unit"};

// Of a section that never came nothing but its name is known.
Line TitleFields(const std::string& file, const Title& title) {
  Line line = {file, KindName(title.kind), title.section, title.model, title.version, title.number,
               {}};
  if (!file.empty()) line.back() = ClockText(title);
  return line;
}

Line AccountFields(const SectionAccount* account) {
  if (account == nullptr) return {"", "", "", "", ""};
  return {std::to_string(account->expected), std::to_string(account->received),
          std::to_string(account->notHeld), std::to_string(account->failed),
          RangesText(account->kind, account->missing)};
}

void Add(Line& line, const Line& more) { line.insert(line.end(), more.begin(), more.end()); }

std::string TextOf(const Line& line, const CsvDialect& dialect) {
  std::string text;
  AppendCsvLine(text, line, dialect);
  return text;
}

}  // namespace

std::string IndexHeading(const CsvDialect& dialect) {
  return dialect.begin + TextOf(kIndex, dialect);
}

std::string IndexLine(const std::string& file, const Title& title, const SectionAccount* account,
                      const RunEnd* end, const CsvDialect& dialect) {
  Line line = TitleFields(file, title);
  Add(line, AccountFields(account));
  const bool known = end != nullptr && end->clock.has_value();
  line.push_back(known ? std::to_string(end->clock->difference) : std::string());
  line.emplace_back(kTimes);
  return TextOf(line, dialect);
}

std::string ColumnsHeading(const CsvDialect& dialect) {
  return dialect.begin + TextOf(kColumns, dialect);
}

std::string ColumnsLines(const std::string& file, const Section& section,
                         const std::vector<Field>& fields, const CsvDialect& dialect) {
  std::string text;
  const std::size_t first = RowsTakeTitleTime(section) ? 2 : 1;  // after the clock
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const Column& column = section.columns[i];
    const Field& field = fields[i];
    text += TextOf({file, std::to_string(first + i), field.name, NameOf(field.quantity),
                    NameOf(field.pipe), field.unit.text, column.name, column.caption, column.unit},
                   dialect);
  }
  return text;
}

}  // namespace host
