#include "host/cli/replay_run.h"

#include <fmt/format.h>

#include <memory>
#include <utility>

#include "host/cli/frame_watch.h"
#include "host/cli/line_summary.h"
#include "host/cli/one_reading.h"
#include "host/cli/summary.h"
#include "host/line/replay_line.h"
#include "host/system/clock.h"
#include "host/system/console.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {
namespace {

// A trace in the place of a line, of who stops a reading and of the clocks.
class ReplayedLine {
 public:
  // Frames are shown on the screen, or only counted.
  ReplayedLine(const ReadingTrace& traced, Screen& screen, bool shown)
      : ReplayedLine(traced, std::make_unique<ReplayLine>(traced.trace), screen, shown) {}

  Surroundings From() {
    return {*watched_, [this] { return Stop(); }, [this] { return LocalTime(); },
            [this] { return Now(); }};
  }
  // Empty when the reading was that of the trace.
  std::string Trouble(const RunEnd& end, const StreamTotal& stream) {
    line_.Finish();
    if (line_.Departed()) return line_.Trouble();
    const TracedEnd& told = traced_.end;
    if (stream != told.stream) {
      return fmt::format("the stream is not that of the trace: {}, in the trace {}",
                         Describe(stream), Describe(told.stream));
    }
    if (NameOf(end.ending) == told.ending && end.reason == told.reason) return {};
    return fmt::format("the reading ended otherwise than in the trace: {} {}, in the trace {} {}",
                       NameOf(end.ending), end.reason, told.ending, told.reason);
  }

 private:
  ReplayedLine(const ReadingTrace& traced, std::unique_ptr<ReplayLine> line, Screen& screen,
               bool shown)
      : traced_(traced),
        line_(*line),
        watch_(screen, shown),
        watched_(watch_.Over(std::move(line), [this] { return Now(); })) {}

  // The clocks stand where the trace does.
  std::chrono::steady_clock::time_point Now() const {
    return std::chrono::steady_clock::time_point(line_.Elapsed());
  }
  StopRequest Stop() {
    if (Interrupted()) line_.Interrupt();
    if (line_.StoppedFor() == StopCause::kUser) return StopRequest::kInterrupted;
    if (line_.StoppedFor() == StopCause::kDone) return StopRequest::kDone;
    return line_.RunsAreOver() ? traced_.end.stopped : StopRequest::kNone;
  }
  SYSTEMTIME LocalTime() const {
    return Later(traced_.reading.begun, std::chrono::floor<std::chrono::seconds>(line_.Elapsed()));
  }

  const ReadingTrace& traced_;
  ReplayLine& line_;
  FrameWatch watch_;
  const std::unique_ptr<LinePort> watched_;
};

ReadOptions OptionsOf(const TracedReading& reading, const SinkOptions& sinks) {
  ReadOptions options;
  options.line = reading.line;
  options.settings = reading.settings;
  options.search = reading.search;
  options.sinks = sinks;
  options.sinks.follow = reading.settings.follow;
  return options;
}

int CodeOf(const RunEnd& end, const TracedEnd& told) {
  return end.ending == Ending::kInterrupted ? told.exitCode : ExitCodeOf(end);
}

}  // namespace

Replayed RunReplay(const ReadingTrace& traced, const SinkOptions& sinks,
                   const DriverLibrary& library, Screen& screen, RunListener& listener) {
  const ReadOptions options = OptionsOf(traced.reading, sinks);
  ReplayedLine replay(traced, screen, sinks.verbose > 1);
  const Surroundings from = replay.From();
  const std::vector<Way> ways = CheckReading(library, options);
  OneReading reading(options, library, ways, from, screen, listener);
  Replayed done;
  done.end = reading.Run();
  WriteStandardError(ClockLine(done.end) + IgnoredLine(done.end.counts) + MissingLines(done.end) +
                     LineLine(done.end) + reading.Summary(done.end));
  done.trouble = replay.Trouble(done.end, reading.Stream());
  done.exitCode = done.trouble.empty() ? CodeOf(done.end, traced.end) : kFailed;
  return done;
}

}  // namespace host
