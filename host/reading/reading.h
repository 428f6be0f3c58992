// One reading through the driver, from the set-up to the end of its thread.
#pragma once

#include "host/line/line_port.h"
#include "host/reading/driver_library.h"
#include "host/reading/known_records.h"
#include "host/reading/run_listener.h"
#include "host/system/clock.h"

namespace host {

// run has settings that the driver offers. askStop is asked about ten times a second, from this
// thread; known: only what that lacks is read, null: all that is asked for; now: this machine's
// local time. Throws std::runtime_error when the reading cannot begin, and what the listener throws
// at its beginning and its end.
RunEnd RunReading(const DriverLibrary& library, const Run& run, LinePort& line,
                  RunListener& listener, const AskStop& askStop, KnownRecords* known = nullptr,
                  const std::function<SYSTEMTIME()>& now = LocalNow);

}  // namespace host
