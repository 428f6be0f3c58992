// The fields of a run as a user wants to see them: known units, converted where that is wanted.
#pragma once

#include <vector>

#include "host/fields/fields.h"
#include "host/reading/run_listener.h"
#include "host/stream/cell.h"

namespace host {

// The columns of a section.
struct ShownColumns {
  std::vector<Field> fields;  // as shown, one per column
  std::vector<Unit> given;    // the unit that each column's values come in
  bool converted = false;     // some are to be converted

  // The cells of a row, converted; scratch holds them where there is something to convert.
  const Cells& In(const Cells& cells, Cells& scratch) const;
};

// A value that comes in one unit and is shown in another. Single-precision values convert as the
// number that their shortest text says, so that 0.1 MPa are 100 kPa. Texts stay as they are.
Cell Converted(const Cell& cell, Unit given, Unit shown);

// Knows the units that the run tells; of a run that tells none those that its sections do.
class FieldView {
 public:
  explicit FieldView(const UnitChoice& choice) : choice_(choice) {}

  void BeginRun(const Run& run) { told_ = run.units; }
  void See(const Section& section);
  void See(const Section& section, const Cells& row);
  ShownColumns Columns(const Section& section) const;

 private:
  UnitChoice choice_;
  const UnitSettings* told_ = nullptr;
  UnitSettings seen_;  // where none are told
};

}  // namespace host
