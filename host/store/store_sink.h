// Keeps what a run brings in the store. Rows are written as often as Keep is called, in one
// transaction each time, so that another program never waits long.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/store/catalogue.h"
#include "host/store/reading_rows.h"
#include "host/store/record_table.h"
#include "host/store/store.h"

namespace host {

class StoreSink final : public RunListener {
 public:
  // Opens the store; throws std::runtime_error.
  StoreSink(const std::string& address, StoreReport report, bool replace);

  void BeginRun(const Run& run) override;
  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void Keep() override;
  void EndRun(const RunEnd& end) override;

 private:
  // A section as it came, and once it is written its keys.
  struct Open {
    Section section;
    bool known = false;
    long long id = 0;
    long long format = 0;
    const RecordLayout* layout = nullptr;  // of an archive
    std::vector<std::size_t> slots;        // of each column; kNoSlot: none
    std::vector<Field> fields;
  };
  struct Row {
    std::shared_ptr<Open> of;
    Cells cells;
  };

  void Write(const std::function<void()>& work);
  void WriteRows();
  void WriteRow(const Row& row);
  void WriteRecord(const Open& open, const Cells& cells);
  void Learn(Open& open);
  void LearnInstrument(const Section& section);
  RecordTable& TableOf(const RecordLayout& layout);
  void WriteAbsences(const RunEnd& end);
  void Fill(RecordTable& table, const Open& open, const Cells& cells) const;
  void Count(PutResult result);
  static FieldValues ContentOf(const Open& open, const Cells& cells);
  // Of the field that stands in a column.
  static std::string NameOf(const Open& open, std::size_t column);

  Database database_;
  StoreReport report_;
  const bool replace_;
  Catalogue catalogue_;
  ReadingRows reading_;
  Run run_;
  UnitSettings seen_;  // where the run tells none
  long long instrument_ = 0;
  TAVDT clock_{};  // the instrument's, as the last section told it
  std::shared_ptr<Open> open_;
  std::vector<Row> rows_;
  std::map<std::string, std::unique_ptr<RecordTable>> tables_;  // by name
  std::map<long long, std::string> archives_;  // tables of sections that rows were written to
  RecordCounts counts_;
  bool broken_ = false;
};

}  // namespace host
