// One run of a driver object, from its set-up to the end of its thread.
#pragma once

#include "host/line/line_port.h"
#include "host/reading/driver_library.h"
#include "host/reading/receiver.h"
#include "host/reading/run_listener.h"

namespace host {

struct DriverEnd {
  bool begun = false;   // the driver took the settings and started
  bool waited = false;  // in vain, as long as the settings' patience, and was stopped
  ReceiverStatus status;
  StreamCounts counts;
};

// settings: ones that the driver offers. The listener is told all but the beginning and the end of
// the run. askStop is asked about ten times a second, from this thread. A driver that does not end
// soon after a stop has its thread ended, so that a stop takes less than two seconds; what was told
// until then holds, and the status has no end.
DriverEnd RunDriver(const DriverLibrary& library, const ReadSettings& settings, LinePort& line,
                    RunListener& listener, const AskStop& askStop);

}  // namespace host
