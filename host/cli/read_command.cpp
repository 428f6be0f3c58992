#include <utility>

#include "host/cli/commands.h"
#include "host/cli/summary.h"
#include "host/line/open_line.h"
#include "host/reading/driver_set_up.h"
#include "host/reading/reading.h"
#include "host/system/clock.h"
#include "host/system/console.h"
#include "host/system/files.h"

namespace host {
namespace {

std::unique_ptr<LinePort> Open(const ReadOptions& options, Screen& screen) {
  simulator::Settings simulated = options.simulated;
  simulated.report = [&screen](const std::string& text) {
    screen.PrintLine("simulated instrument: " + text);
  };
  return OpenLine(options.line, simulated);
}

// Says so when it stops, once.
class StopAsked {
 public:
  explicit StopAsked(Screen& screen) : screen_(screen) {}
  StopRequest operator()() {
    if (!Interrupted()) return StopRequest::kNone;
    if (!std::exchange(told_, true)) screen_.PrintLine("irvela: stopping ...");
    return StopRequest::kInterrupted;
  }

 private:
  Screen& screen_;
  bool told_ = false;
};

int CodeOf(const RunEnd& end) {
  return end.ending == Ending::kInterrupted ? InterruptExitCode() : ExitCodeOf(end);
}

}  // namespace

int Read(const ReadOptions& options) {
  const DriverLibrary library(options.driver);
  // Wrong usage is told before a line is opened or a file begun.
  CheckSettings(library, options.settings);
  Screen screen;
  const auto line = Open(options, screen);
  const auto sinks = MakeSinks(options.sinks, screen);
  CountInterrupts();
  const Run run{options.settings, options.line, LocalNow()};
  const RunEnd end = RunReading(library, run, *line, *sinks, StopAsked(screen));
  WriteStandardError(IgnoredLine(end.counts) + ReadingLine(end, options.sinks.out));
  return CodeOf(end);
}

}  // namespace host
