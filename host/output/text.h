// Words and widths of what people read.
#pragma once

#include <cstddef>
#include <string>

#include "host/stream/section.h"

namespace host {

// "hours ТВ1: УРМ523 V3, number 12345, clock 2016-09-04 13:05:09".
std::string SectionHeading(const Section& section);

// "1 row", "2 rows".
std::string CountOf(std::size_t count, const char* what);

// Characters on the screen of a UTF-8 text.
std::size_t DisplayWidth(const std::string& utf8);

// Blanks are added on the right, or on the left.
std::string PadRight(const std::string& text, std::size_t width);
std::string PadLeft(const std::string& text, std::size_t width);

}  // namespace host
