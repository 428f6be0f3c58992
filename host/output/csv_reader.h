// Reads comma-separated values back.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "host/output/csv.h"

namespace host {

using CsvLine = std::vector<std::string>;

// A file with a heading, in either of the dialects.
class CsvTable {
 public:
  // Throws std::runtime_error with one sentence when the file cannot be read, or is no such table.
  explicit CsvTable(const std::filesystem::path& path);

  const CsvDialect& Dialect() const { return dialect_; }
  const CsvLine& Heading() const { return heading_; }
  const std::vector<CsvLine>& Lines() const { return lines_; }
  // Of a line; empty where the table has no such column.
  std::string Field(const CsvLine& line, const std::string& column) const;

 private:
  CsvDialect dialect_ = kStandardCsv;
  CsvLine heading_;
  std::vector<CsvLine> lines_;
};

}  // namespace host
