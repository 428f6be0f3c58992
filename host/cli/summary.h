// The last lines of a run, on the standard error.
#pragma once

#include <string>

#include "host/reading/run_listener.h"

namespace host {

// Nothing when all of the stream made sense.
void TellIgnored(const StreamCounts& counts);

// What a reading brought, and the exit code that says the same. out: the folder, or empty.
int TellReading(const RunEnd& end, const std::string& out);

}  // namespace host
