// Numbers as people read them.
#pragma once

#include <string>

#include "host/stream/cell.h"

namespace host {

// The text of a cell, numbers with a fraction to so many significant digits: "71.5032" for 6.
// Digits before the point are never rounded away, nothing else than such a number is changed, and
// the text is never longer than the exact one.
std::string RoundedText(const Cell& cell, int digits);

}  // namespace host
