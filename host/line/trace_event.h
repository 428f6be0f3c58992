// The lines of a trace: one event each.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "host/line/trace_file.h"

namespace host {

std::string TraceLineOf(const TraceEvent& event);

// Throws nlohmann::json::exception when the object is no event.
TraceEvent ParseTraceEvent(const nlohmann::json& line);

// "none", "user", "done", "lost", "refused", "waited".
const char* NameOf(StopCause cause);

}  // namespace host
