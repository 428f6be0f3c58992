// How wide what is shown may be.
#pragma once

#include <cstddef>

namespace host {

// Characters of a line of the standard output: what COLUMNS says, else of its terminal, else 100.
std::size_t OutputWidth();

// Of the terminal that the standard output goes to; 0: to none.
std::size_t OutputTerminalWidth();

}  // namespace host
