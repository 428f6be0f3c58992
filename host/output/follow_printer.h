// Prints rows as they arrive: what continuous reading shows.
#pragma once

#include <optional>
#include <string>

#include "host/output/csv.h"
#include "host/output/field_view.h"
#include "host/output/format.h"
#include "host/output/json_row.h"
#include "host/output/screen.h"
#include "host/reading/run_listener.h"

namespace host {

// Rows are shown once they are kept.
//
// table and csv: a heading whenever another section comes, then a line per row. json: an object per
// line, with its section, model, serial number and clock before its fields.
class FollowPrinter final : public RunListener {
 public:
  // screen must outlive it.
  FollowPrinter(Format format, const UnitChoice& units, const CsvDialect& dialect, Screen& screen)
      : format_(format), dialect_(dialect), view_(units), screen_(screen) {}
  void BeginRun(const Run& run) override { view_.BeginRun(run); }
  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void Keep() override;
  void EndRun(const RunEnd& /*end*/) override { Keep(); }

 private:
  std::string HeadingOf(const Section& section) const;
  std::string LineOf(const Section& section, const Cells& cells) const;

  Format format_;
  CsvDialect dialect_;
  FieldView view_;
  Screen& screen_;
  std::string unshown_;
  ShownColumns columns_;        // of the open section
  std::optional<JsonRow> row_;  // the same in JSON
  std::string lastHeading_;
  Cells scratch_;
};

}  // namespace host
