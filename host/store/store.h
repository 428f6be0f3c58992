// The archive that readings are kept in: a database that outlives them. docs/store.md tells its
// tables.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "host/reading/run_listener.h"

namespace host {

// address: a file, made when it does not exist, or "postgresql://..."; empty: the file in the
// user's data folder. report is told one line at the end of the run: how many records are new and
// how many have changed. Throws std::runtime_error with one sentence when the store cannot be
// opened; the sink throws the same when it cannot be written. Throws UsageError for a server where
// the program is built without PostgreSQL.
//
// What was read once, and comes now from a file, is told by a run without settings. replace:
// whether a record that differs from the one that is kept takes its place.
using StoreReport = std::function<void(const std::string&)>;
std::unique_ptr<RunListener> MakeStoreSink(const std::string& address, StoreReport report,
                                           bool replace = true);

}  // namespace host
