// A folder of CSV files that an earlier reading left, told as the reading told it.
#pragma once

#include <filesystem>
#include <string>

#include "host/reading/run_listener.h"

namespace host {

// What the files do not tell, as the types of columns, comes from the table of fields. Values that
// were converted into other units stay so. Throws std::runtime_error with one sentence when the
// folder cannot be read or was left by no reading, and what the listener throws.
RunEnd RunKeptFolder(const std::filesystem::path& folder, RunListener& listener);

}  // namespace host
