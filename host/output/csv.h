// Comma-separated values in UTF-8.
#pragma once

#include <string>
#include <vector>

#include "host/fields/fields.h"
#include "host/stream/cell.h"
#include "host/stream/section.h"

namespace host {

struct CsvDialect {
  char separator;
  char decimal;         // in numbers
  const char* lineEnd;  // the same on every system
  const char* begin;    // what a file begins with
};

// RFC 4180, but for the line ends.
inline constexpr CsvDialect kStandardCsv{',', '.', "\n", ""};
// What a spreadsheet set to Russian opens by a double click, with a byte order mark.
inline constexpr CsvDialect kExcelRuCsv{';', ',', "\r\n", "\xEF\xBB\xBF"};

// Quoted where needed.
void AppendCsvField(std::string& out, const std::string& text, const CsvDialect& dialect);
void AppendCsvLine(std::string& out, const std::vector<std::string>& fields,
                   const CsvDialect& dialect);

// The names of the fields, which end with the unit. Current values have no time of their own: their
// first column "clock" is the instrument's clock from the title. The last column is "undescribed"
// when rows carry more than the columns describe.
void AppendCsvHeader(std::string& out, const Section& section, const std::vector<Field>& fields,
                     const CsvDialect& dialect);
// The same with what the driver calls them: "DT", "t1 (caption), 'C".
void AppendDriverHeader(std::string& out, const Section& section, const CsvDialect& dialect);
// clock: the instrument's when the row's section came. Cells may end before the columns do.
void AppendCsvRow(std::string& out, const Section& section, const TAVDT& clock, const Cells& cells,
                  const CsvDialect& dialect);

// Whether rows are headed by the instrument's clock.
bool RowsTakeTitleTime(const Section& section);

}  // namespace host
