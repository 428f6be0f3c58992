// What irvela explain is given: bytes on the command line or in a file.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/frames/frame.h"
#include "host/line/trace_file.h"

namespace host {

// Bytes that are explained together.
struct ExplainedLine {
  Bytes bytes;
  frames::Direction direction = frames::Direction::kUnknown;
};

struct ExplainedInput {
  std::vector<ExplainedLine> lines;
  std::optional<Trace> trace;  // instead
};

// One word that names a file is that file; else they are hex digits, blanks anywhere between bytes.
// A file is a trace, or lines of hex, with ">" before what was sent, "<" before what was received,
// and "#" before remarks. Throws UsageError for what is neither, std::runtime_error for a file that
// makes no sense.
ExplainedInput LoadExplainedInput(const std::vector<std::string>& words);

}  // namespace host
