// The table of fields for people and programs.
#pragma once

#include <string>

namespace host {

// A table for the sections of a model that have the same columns. Where the instrument's settings
// choose the unit, the units and the ends of the names stand with '|' between them.
std::string FieldsText();

// A list of objects, one a line: model, sections (a list), column, caption, driver_unit, base,
// fields and units (lists, one for each unit that the settings may choose), quantity, pipe, type,
// role, span, note. What does not apply is null, a unit that is told nowhere too.
std::string FieldsJson();

}  // namespace host
