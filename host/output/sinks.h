// Where a run goes: the one place that chooses sinks.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "host/output/format.h"
#include "host/output/screen.h"
#include "host/reading/run_listener.h"

namespace host {

struct SinkOptions {
  Format format = Format::kTable;
  std::size_t rows = 10;  // of a section in a table; 0: all
  bool follow = false;    // rows are shown as they arrive
  std::string out;        // folder, or empty
  std::string raw;        // file, or empty
  bool verbose = false;   // the driver's messages are shown
  bool force = false;     // what out and raw name may be written over
};

// Files are begun at once; throws UsageError or std::runtime_error with the reason when one cannot
// be. screen
// must outlive the sinks.
std::unique_ptr<RunListener> MakeSinks(const SinkOptions& options, Screen& screen);

}  // namespace host
