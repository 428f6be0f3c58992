// A stream that an earlier reading kept, told as the reading told it.
#pragma once

#include <string>

#include "host/reading/run_listener.h"
#include "host/stream/raw_file.h"

namespace host {

// name: of the file, for people. A stream without a section has failed. Throws what the listener
// throws at its beginning and its end.
RunEnd RunKeptStream(KeptPieces& pieces, const std::string& name, RunListener& listener);

}  // namespace host
