// Sections as comma-separated values, shown at the end of a run: each under a line with "#" and its
// title, with an empty line between two.
#pragma once

#include <string>

#include "host/output/screen.h"
#include "host/reading/run_listener.h"

namespace host {

class CsvDocument final : public RunListener {
 public:
  // screen must outlive it.
  explicit CsvDocument(Screen& screen) : screen_(screen) {}
  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void EndRun(const RunEnd& end) override;

 private:
  Screen& screen_;
  std::string text_;
};

}  // namespace host
