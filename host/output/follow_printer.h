// Prints rows as they arrive: what continuous reading shows.
#pragma once

#include <optional>
#include <string>

#include "host/output/format.h"
#include "host/output/json_row.h"
#include "host/output/screen.h"
#include "host/reading/run_listener.h"

namespace host {

// A row that says the same as the one before it, clock included, is not shown again: an instrument
// may be read twice within a second. Rows are shown once they are kept.
//
// table and csv: a heading whenever another section comes, then a line per row. json: an object per
// line, with its section under "kind" and "section".
class FollowPrinter final : public RunListener {
 public:
  // screen must outlive it.
  FollowPrinter(Format format, Screen& screen) : format_(format), screen_(screen) {}
  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void Keep() override;
  void EndRun(const RunEnd& /*end*/) override { Keep(); }

 private:
  std::string LineOf(const Section& section, const Cells& cells);

  Format format_;
  Screen& screen_;
  std::string unshown_;
  std::optional<JsonRow> row_;  // of the open section, in JSON
  std::string lastHeading_;
  std::string lastLine_;
};

}  // namespace host
