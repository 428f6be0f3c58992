// The parameter databases of instruments as the store has them, and how they changed.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/store/selection.h"
#include "host/stream/cell.h"

namespace host {

struct Parameter {
  std::string field;    // without a unit
  Cell value;           // nothing: the instrument never told one
  std::string unit;     // the true one; empty: none, or not known
  std::string caption;  // as the instrument shows it
};

// When a reading found something.
struct Noticed {
  std::string reading;  // its begin, of this machine's clock
  std::string clock;    // the instrument's; empty: it told no date
};

// All parameters of a section as a reading left them known; one that changed nothing has none.
struct ParameterSnapshot {
  StoredSection section;
  Noticed noticed;
  std::vector<Parameter> parameters;  // in the instrument's order
};

struct ParameterChange {
  StoredSection section;
  Noticed noticed;
  Noticed before;  // the snapshot with the former value
  Parameter former;
  Parameter current;
};

// Those of the selection's instruments and systems, each section's from the oldest on. Its dates
// are not looked at. Within Read.
std::vector<ParameterSnapshot> FindSnapshots(Database& database, const Selection& selection);

// The newest one of each section; with a time the newest that the instrument's clock had not passed
// by then.
std::vector<ParameterSnapshot> NewestSnapshots(const std::vector<ParameterSnapshot>& snapshots,
                                               const std::optional<SYSTEMTIME>& at = {});

// What changed from one snapshot of a section to the next, noticed from one date to the other of
// the instrument's clock, both included. A parameter that was not known before has not changed.
std::vector<ParameterChange> FindChanges(const std::vector<ParameterSnapshot>& snapshots,
                                         const std::optional<SYSTEMTIME>& from = {},
                                         const std::optional<SYSTEMTIME>& to = {});

}  // namespace host
