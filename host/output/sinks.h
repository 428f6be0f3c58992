// Where a run goes: the one place that chooses sinks.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "host/fields/units.h"
#include "host/output/csv.h"
#include "host/output/format.h"
#include "host/output/screen.h"
#include "host/reading/run_listener.h"

namespace host {

struct SinkOptions {
  Format format = Format::kTable;
  std::size_t rows = 10;          // of a section in a table; 0: all
  bool follow = false;            // rows are shown as they arrive
  std::string out;                // folder, or empty
  std::string raw;                // file, or empty
  std::optional<std::string> db;  // the store, as MakeStoreSink takes it; none: not kept there
  int verbose = 0;                // 1: the driver's messages are shown; 2: and the line's frames
  bool force = false;             // what out and raw name may be replaced
  std::size_t width = 100;        // of the screen that tables are shown on, in characters
  UnitChoice units;
  CsvDialect dialect = kStandardCsv;
};

// Files are begun at once; throws UsageError when out or raw may not be written to, and
// std::runtime_error with the reason when a file or the store cannot be begun. screen must outlive
// the sinks.
std::unique_ptr<RunListener> MakeSinks(const SinkOptions& options, Screen& screen);

}  // namespace host
