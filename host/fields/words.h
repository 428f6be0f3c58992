// How quantities, pipes and the like are called where a user reads them.
#pragma once

#include <cstddef>
#include <string>

#include "host/fields/layout.h"

namespace host {

// "mass flow", "supply", "total", "float", "accumulated"; empty where there is nothing to say:
// Quantity::kOther, Pipe::kNone, Span::kNone.
const char* NameOf(Quantity quantity);
const char* NameOf(Pipe pipe);
const char* NameOf(Span span);
const char* NameOf(tav::Type type);
const char* NameOf(tav::Role role);

// "1 row", "2 rows".
std::string CountOf(std::size_t count, const char* what);

}  // namespace host
