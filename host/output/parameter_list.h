// Parameters of instruments and what changed, for people and programs.
#pragma once

#include <string>
#include <vector>

#include "host/store/parameters.h"

namespace host {

// Below a line for each section one for each parameter: field, value, unit, caption.
std::string ParametersText(const std::vector<ParameterSnapshot>& snapshots);
// Below a line for each section one for each change: when, which parameter, from what to what.
std::string ChangesText(const std::vector<ParameterChange>& changes);

// Lists of objects, one a line: serial, model, section, reading, clock, parameters (field, value,
// unit, caption).
std::string ParametersJson(const std::vector<ParameterSnapshot>& snapshots);
// Serial, model, section, reading, clock, former_reading, former_clock, field, caption, former,
// former_unit, value, unit.
std::string ChangesJson(const std::vector<ParameterChange>& changes);

}  // namespace host
