// Comma-separated values: UTF-8, "\n" on every system, quoted where needed (RFC 4180).
#pragma once

#include <string>

#include "host/stream/cell.h"
#include "host/stream/section.h"

namespace host {

void AppendCsvField(std::string& out, const std::string& text);

// "DT,t1 ('C)..." is spelled "DT", "t1, 'C": name, caption in brackets where it differs, unit.
// Current values have no time of their own: their first column "clock" is the instrument's clock
// from the title. The header gets a last column when rows carry more than the columns describe.
void AppendCsvHeader(std::string& out, const Section& section);
void AppendCsvRow(std::string& out, const Section& section, const Cells& cells);

// "t1, 'C": what heads the column.
std::string ColumnHeading(const Column& column);

// Whether rows are headed by the instrument's clock.
bool RowsTakeTitleTime(const Section& section);

}  // namespace host
