// How wide what is shown may be.
#pragma once

#include <cstddef>

namespace host {

// Characters of a line of the standard output: what COLUMNS says, else of its terminal, else 100.
std::size_t OutputWidth();

// The same of the standard error.
std::size_t ErrorWidth();

// Whether it shows more than ASCII: a terminal that takes UTF-8.
bool OutputShowsUtf8();

// Of the terminal that the standard output or error goes to; 0: to none.
std::size_t OutputTerminalWidth();
std::size_t ErrorTerminalWidth();

// Of any terminal of the user's.
bool TerminalTakesUtf8();

}  // namespace host
