// One CSV file per section in a folder. Rows are in their file about ten times a second, so that a
// reading that ends early leaves what was read.
//
// Files are named in the order in which their sections began: 01-database-ov.csv. A section that
// comes again, as in continuous reading, goes on in its file. index.csv lists the files with the
// instrument that each was read from.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/reading/run_listener.h"
#include "host/system/output_file.h"

namespace host {

// Throws std::runtime_error with the reason when a file cannot be written.
class CsvFolder final : public RunListener {
 public:
  explicit CsvFolder(std::filesystem::path folder);
  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void Keep() override;
  void EndRun(const RunEnd& end) override;

 private:
  using File = std::unique_ptr<OutputFile>;

  File Begin(const std::string& name, const std::string& heading) const;
  OutputFile& AddFile(const Section& section, const std::string& heading);

  std::filesystem::path folder_;
  File index_;
  std::map<std::string, File> files_;   // by section and heading
  std::vector<OutputFile*> unwritten_;  // may hold what is not in the file yet
  OutputFile* file_ = nullptr;          // of the section that came last
  std::string line_;
};

}  // namespace host
