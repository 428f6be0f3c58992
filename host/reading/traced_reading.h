// What a trace tells of its reading beside the calls of the driver: what was asked for, and how it
// ended.
#pragma once

#include <filesystem>
#include <string>

#include "host/line/trace_file.h"
#include "host/reading/run_listener.h"
#include "host/reading/search.h"
#include "host/reading/stream_sum.h"

namespace host {

struct TracedReading {
  ReadSettings settings;
  SearchOptions search;
  std::string line;    // its address
  SYSTEMTIME begun{};  // local time of the machine
};

struct TracedEnd {
  std::string ending;  // NameOf(Ending)
  std::string reason;
  StopRequest stopped{};  // what was asked for when it ended
  int exitCode = 0;
  StreamTotal stream;
};

struct ReadingTrace {
  Trace trace;  // without an end when it is cut
  TracedReading reading;
  TracedEnd end;
};

// JSON objects on one line.
std::string ToJson(const TracedReading& reading);
std::string ToJson(const TracedEnd& end);

// Throws what LoadTrace throws, also where the settings or the end make no sense.
ReadingTrace LoadReadingTrace(const std::filesystem::path& path);

// Of a trace that is loaded; name: of its file, for people. Throws as above.
ReadingTrace ReadingOf(Trace trace, const std::string& name);

}  // namespace host
