// One CSV file per section in a folder, written row by row so that a reading that ends early leaves
// what was read.
//
// Files are named in the order in which their sections began: 01-database-ov.csv. A section that
// comes again, as in continuous reading, goes on in its file. index.csv lists the files with the
// instrument that each was read from.
#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "host/stream/section.h"

namespace host {

// Throws std::runtime_error with the reason when a file cannot be written.
class CsvFolder final : public SectionListener {
 public:
  explicit CsvFolder(std::filesystem::path folder);
  void Begin(const Section& section) override;
  void AddRow(const Section& section, ByteView row) override;
  void End(const Section& section) override;

 private:
  void Open(const std::string& name, bool append);
  void Put(const std::string& text);
  void AddToIndex(const std::string& name, const Section& section);

  std::filesystem::path folder_;
  std::filesystem::path path_;
  std::ofstream file_;
  std::map<std::string, std::string> names_;  // by kind, section text and heading
};

}  // namespace host
