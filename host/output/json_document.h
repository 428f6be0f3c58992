// A run as one JSON document, shown at its end:
// {"result": "read", "sections": [{"kind": "hours", ..., "columns": [...], "rows": [...]}, ...]}
// A reading has a "result" (read, failed or interrupted) and, when it was not read, a "reason".
#pragma once

#include <string>

#include "host/output/json_row.h"
#include "host/output/screen.h"
#include "host/reading/run_listener.h"

namespace host {

class JsonDocument final : public RunListener {
 public:
  // screen must outlive it.
  explicit JsonDocument(Screen& screen) : screen_(screen) {}
  void BeginRun(const Run& run) override;
  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void EndSection(const Section& section) override;
  void EndRun(const RunEnd& end) override;

 private:
  Screen& screen_;
  bool hasResult_ = false;
  std::string text_;  // from the sections on
  JsonWriter writer_{text_, JsonWriter::Layout::kIndented, 1};
  std::optional<JsonRow> row_;  // of the open section
};

}  // namespace host
