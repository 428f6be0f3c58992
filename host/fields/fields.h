// What the columns of a section are: stable field names, quantities, pipes and true units. The
// tables are in layout.h and host/fields/models.
#pragma once

#include <string>
#include <vector>

#include "host/fields/layout.h"
#include "host/fields/unit_settings.h"
#include "host/fields/words.h"
#include "host/stream/section.h"

namespace host {

struct Field {
  // Lower-case letters, digits and '_', begins with a letter, unique within its section: "q_gcal".
  std::string name;
  std::string base;  // the name without its unit, "q"; the same whatever the instrument is set to
  Quantity quantity = Quantity::kOther;
  Pipe pipe = Pipe::kNone;
  Span span = Span::kNone;
  UnitOf unit;  // the true one
};

// The field of an entry, once its unit is known.
Field FieldOf(const ColumnRun& run, const Entry& entry, const UnitOf& unit);

// A field for each column, in order. A column that no table has gets a name made of its own
// ("x_foo"), an unknown quantity and the driver's unit.
std::vector<Field> FieldsOf(const Section& section, const UnitSettings& settings = {});

// The same value with its unit as a text shows it: "kgf/cm2".
Field WithUnit(const Field& field, const std::string& shown);

// The field of a value in the units that the user wants.
Field Converted(const Field& field, const UnitChoice& choice);

}  // namespace host
