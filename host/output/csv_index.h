// The lines of index.csv and columns.csv.
#pragma once

#include <string>
#include <vector>

#include "host/output/csv.h"
#include "host/output/gathered_run.h"

namespace host {

std::string IndexHeading(const CsvDialect& dialect);
// account and end: null while they are not known.
std::string IndexLine(const std::string& file, const Title& title, const SectionAccount* account,
                      const RunEnd* end, const CsvDialect& dialect);

std::string ColumnsHeading(const CsvDialect& dialect);
// A line for each column of a file, numbered from 1 as they stand in it.
std::string ColumnsLines(const std::string& file, const Section& section,
                         const std::vector<Field>& fields, const CsvDialect& dialect);

}  // namespace host
