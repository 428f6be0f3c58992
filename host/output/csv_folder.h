// One CSV file per section in a folder. Rows are in their file about ten times a second, so that a
// reading that ends early leaves what was read.
//
// Files are named in the order in which their sections began: 01-database-ov.csv. A section that
// comes again goes on in its file. index.csv lists the files with the instrument that each was read
// from, columns.csv what each of their columns is. docs/outputs.md tells all of it.
//
// Once the run is known as a whole, files whose rows, order or heading are others by then take
// their final form, and the index gets what is missing; a reading without an end, which is never
// shown as a whole, stays as it came.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/output/csv.h"
#include "host/output/field_view.h"
#include "host/output/gathered_run.h"
#include "host/reading/run_listener.h"
#include "host/system/output_file.h"

namespace host {

// Throws std::runtime_error with the reason when a file cannot be written.
class CsvFolder final : public RunListener, public Document {
 public:
  explicit CsvFolder(std::filesystem::path folder, const UnitChoice& units = {},
                     const CsvDialect& dialect = kStandardCsv);
  void BeginRun(const Run& run) override { view_.BeginRun(run); }
  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void Keep() override;
  void EndRun(const RunEnd& end) override;

  void Show(const GatheredRun& run) override;

 private:
  struct SectionFile {
    std::string name;
    ShownColumns columns;  // as its heading has them
    std::unique_ptr<OutputFile> file;
  };

  std::unique_ptr<OutputFile> Begin(const std::string& name, const std::string& text) const;
  std::string Heading(const Section& section, const std::vector<Field>& fields) const;
  SectionFile& AddFile(const Section& section);
  std::string FileText(const GatheredSection& gathered) const;

  std::filesystem::path folder_;
  CsvDialect dialect_;
  FieldView view_;
  std::unique_ptr<OutputFile> index_;
  std::unique_ptr<OutputFile> columns_;
  std::map<std::string, SectionFile> files_;  // by GatheringKey
  std::vector<OutputFile*> unwritten_;        // may hold what is not in the file yet
  SectionFile* open_ = nullptr;               // of the section that came last
  std::string line_;
  Cells scratch_;
};

}  // namespace host
