// One reading, from the search for the instrument to its end: of an instrument, or of a trace.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "host/cli/read_options.h"
#include "host/output/screen.h"
#include "host/reading/driver_library.h"
#include "host/reading/progress_meter.h"
#include "host/reading/stream_sum.h"

namespace host {

// What a reading takes from the machine.
struct Surroundings {
  LinePort& line;
  AskStop askStop;
  std::function<SYSTEMTIME()> localTime;
  std::function<std::chrono::steady_clock::time_point()> now;
  KnownRecords* known = nullptr;  // null: all that is asked for is read
};

class OneReading {
 public:
  // Everything must outlive it. ways: to be tried, when the instrument is to be found first.
  OneReading(const ReadOptions& options, const DriverLibrary& library, const std::vector<Way>& ways,
             const Surroundings& from, Screen& screen, RunListener& sinks);

  RunEnd Run();
  // Once it has ended.
  std::string Summary(const RunEnd& end) const;
  StopRequest Stopped() const { return askStop_(); }
  const StreamTotal& Stream() const { return stream_.Total(); }

 private:
  RunListener& Listener();
  bool Find(ReadSettings& settings);
  RunEnd Read(const host::Run& run);
  RunEnd NotFound();

  const ReadOptions& options_;
  const DriverLibrary& library_;
  const std::vector<Way>& ways_;
  const Surroundings from_;
  Screen& screen_;
  StreamSum stream_;
  ProgressMeter meter_;
  FollowPace pace_;
  const AskStop askStop_;  // knows when a continuous reading is done
};

// Wrong usage is told before a line is opened or a file begun. Returns what is to be tried.
std::vector<Way> CheckReading(const DriverLibrary& library, const ReadOptions& options);

}  // namespace host
