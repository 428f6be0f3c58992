#include <fmt/format.h>

#include <optional>
#include <utility>

#include "host/cli/commands.h"
#include "host/cli/frame_watch.h"
#include "host/cli/line_summary.h"
#include "host/cli/one_reading.h"
#include "host/cli/stop_asked.h"
#include "host/cli/summary.h"
#include "host/line/trace_line.h"
#include "host/output/raw_file_sink.h"
#include "host/reading/traced_reading.h"
#include "host/system/clock.h"
#include "host/system/console.h"
#include "host/system/files.h"

namespace host {
namespace {

std::unique_ptr<LinePort> Open(const ReadOptions& options, Screen& screen) {
  LineChoice choice = options;
  choice.simulated.report = [&screen](const std::string& text) {
    screen.PrintLine("simulated instrument: " + text);
  };
  return Open(choice, [&screen](const std::string& text) { screen.PrintLine("irvela: " + text); });
}

int CodeOf(const RunEnd& end) {
  return end.ending == Ending::kInterrupted ? InterruptExitCode() : ExitCodeOf(end);
}

std::vector<Way> Check(const DriverLibrary& library, const ReadOptions& options) {
  std::vector<Way> ways = CheckReading(library, options);
  const SinkOptions& sinks = options.sinks;
  if (options.trace.empty()) return ways;
  // A replay has no store that would tell what it lacked.
  if (options.wish) throw UsageError("--trace goes with neither --fill nor --since-last");
  if (options.trace == sinks.raw) throw UsageError("--trace and --raw name the same file");
  CheckNewFile("--trace", options.trace, sinks.out, sinks.force);
  return ways;
}

std::string PlaceOf(const ReadOptions& options) {
  return fmt::format("{}, number {}", options.line, options.settings.number);
}

// Before the line is opened: who has nothing to fill has named the wrong line, or store.
std::unique_ptr<KnownRecords> Recall(const ReadOptions& options, Screen& screen) {
  if (!options.wish) return nullptr;
  auto known = MakeRemembered(*options.sinks.db, *options.wish);
  if (!known->ReadLast({options.settings, options.line, {}}).model.empty()) return known;
  if (options.wish->fill) {
    throw std::runtime_error(fmt::format(
        "--fill: the store has nothing of an instrument at {}; read it first", PlaceOf(options)));
  }
  screen.PrintLine(
      fmt::format("irvela: the store has nothing of an instrument at {} yet; reading the last {} "
                  "days",
                  PlaceOf(options), kDefaultDays));
  return known;
}

// A reading of an instrument, and what is kept of it.
class LiveReading {
 public:
  explicit LiveReading(const ReadOptions& options)
      : options_(options),
        library_(options.driver),
        ways_(Check(library_, options)),
        known_(Recall(options, screen_)),
        line_(Open(options, screen_)),
        sinks_(MakeSinks(options.sinks, screen_)) {
    if (!options.trace.empty()) BeginTrace();
    line_ = watch_.Over(std::move(line_), std::chrono::steady_clock::now);
  }

  // Returns the exit code.
  int Run() {
    const Surroundings from{*line_, StopAsked(screen_), LocalNow, std::chrono::steady_clock::now,
                            known_.get()};
    OneReading reading(options_, library_, ways_, from, screen_, *sinks_);
    const RunEnd end = reading.Run();
    const int code = CodeOf(end);
    const TracedEnd traced{NameOf(end.ending), end.reason, reading.Stopped(), code,
                           reading.Stream()};
    WriteStandardError(ClockLine(end) + IgnoredLine(end.counts) + MissingLines(end) +
                       LineLine(end) + EndTrace(traced) + reading.Summary(end));
    return code;
  }

 private:
  void BeginTrace() {
    trace_.emplace(PathOf(options_.trace), ToJson(TracedReading{options_.settings, options_.search,
                                                                options_.line, LocalNow()}));
    line_ = std::make_unique<TraceLine>(std::move(line_), *trace_);
  }
  // What is to be told of the trace.
  std::string EndTrace(const TracedEnd& end) {
    if (!trace_) return {};
    trace_->End(ToJson(end));
    if (trace_->Trouble().empty()) return {};
    return "irvela: the trace is not whole: " + trace_->Trouble() + '\n';
  }

  const ReadOptions& options_;
  const DriverLibrary library_;
  const std::vector<Way> ways_;
  Screen screen_;
  const std::unique_ptr<KnownRecords> known_;  // null: all that is asked for is read
  std::optional<TraceWriter> trace_;
  FrameWatch watch_{screen_, options_.sinks.verbose > 1};
  std::unique_ptr<LinePort> line_;
  const std::unique_ptr<RunListener> sinks_;
};

class ReadCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override { parser_.AddTo(app); }
  void Finish() override { parser_.Finish(); }
  int Run() override {
    LiveReading reading(options_);
    CountInterrupts();
    return reading.Run();
  }

 private:
  ReadOptions options_;
  ReadParser parser_{options_};
};

}  // namespace

std::unique_ptr<Command> MakeReadCommand() { return std::make_unique<ReadCommand>(); }

}  // namespace host
