// How a run ended, for people and for scripts.
#pragma once

#include <chrono>
#include <string>

#include "host/reading/run_listener.h"

namespace host {

int ExitCodeOf(const RunEnd& end);

// "irvela: 2 pieces of the stream made no sense"; empty when all of it made sense. A whole line, as
// the next one.
std::string IgnoredLine(const StreamCounts& counts);

// "irvela: warning: the instrument's clock is ..."; empty when there is nothing to warn of.
std::string ClockLine(const RunEnd& end);

// What is missing, a line per section: "  hours ТВ1: missing 3 of 744: ...".
std::string MissingLines(const RunEnd& end);

// What a reading brought. out: the folder that keeps it, or empty.
std::string ReadingLine(const RunEnd& end, const std::string& out);

// What a reading of gaps brought: "irvela: filled 12 of 14 missing records; 2 remain".
std::string FillLine(const RunEnd& end);

// The same of a continuous reading, whose sections come again and again.
std::string FollowLine(const RunEnd& end, std::size_t rows, std::chrono::seconds elapsed,
                       const std::string& out);

}  // namespace host
