// One replay of a trace.
#pragma once

#include <string>

#include "host/output/screen.h"
#include "host/output/sinks.h"
#include "host/reading/driver_library.h"
#include "host/reading/traced_reading.h"

namespace host {

struct Replayed {
  RunEnd end;
  std::string trouble;  // where the replay departs from the trace, one sentence; empty: nowhere
  int exitCode = 0;
};

// Tells how the reading ended on the standard error. sinks: what the listener was made from. Throws
// UsageError when the driver does not offer the settings of the trace.
Replayed RunReplay(const ReadingTrace& traced, const SinkOptions& sinks,
                   const DriverLibrary& library, Screen& screen, RunListener& listener);

}  // namespace host
