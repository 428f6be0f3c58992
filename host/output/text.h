// Words and widths of what people read.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/fields/words.h"
#include "host/output/ranges.h"
#include "host/reading/run_listener.h"
#include "host/stream/section.h"

namespace host {

// What the times of every output are.
inline constexpr const char* kTimes = "instrument clock, no zone";

// "hours ТВ1"; "hours" without a part of the instrument.
std::string SectionName(tav::TitleKind kind, const std::string& section);

// "2016-09-04 13:05:09"; empty where a title tells no clock.
std::string ClockText(const Title& title);

// "hours ТВ1: УРМ523 V3, number 12345, clock 2016-09-04 13:05:09".
std::string SectionHeading(const Section& section);

// What is missing and what the instrument does not hold: a line each, none where there is nothing
// to say. most: ranges of dates in a line.
std::vector<std::string> AccountLines(const SectionAccount& account, std::size_t most = kAllRanges);

// "the instrument's clock is 3 h 12 min ahead of this machine's"; empty unless that is too much.
std::string ClockWarning(const RunEnd& end);

// Characters on the screen of a UTF-8 text.
std::size_t DisplayWidth(const std::string& utf8);

// Blanks are added on the right, or on the left.
std::string PadRight(const std::string& text, std::size_t width);
std::string PadLeft(const std::string& text, std::size_t width);

}  // namespace host
