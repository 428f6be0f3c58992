// What the line of a reading did, for people.
#pragma once

#include <string>

#include "host/reading/run_listener.h"

namespace host {

// "irvela: line: 412 requests, 409 replies, 3 retries, 3 time-outs; 12.4 KB out, 86.1 KB in; ...",
// a whole line; troubles that there were none of are left out. Empty when nothing was asked.
std::string LineLine(const RunEnd& end);

}  // namespace host
