#include <fmt/format.h>

#include <utility>

#include "host/cli/commands.h"
#include "host/cli/read_options.h"
#include "host/cli/summary.h"
#include "host/line/open_line.h"
#include "host/output/message_printer.h"
#include "host/reading/driver_set_up.h"
#include "host/reading/progress_meter.h"
#include "host/reading/reading.h"
#include "host/reading/search.h"
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

ReadSettings By(const Way& way, ReadSettings settings) {
  settings.kind = way.kind;
  settings.baud = way.baud;
  return settings;
}

// Wrong usage is told before a line is opened or a file begun. Returns what is to be tried.
std::vector<Way> Check(const DriverLibrary& library, const ReadOptions& options) {
  if (!options.search.Wanted()) {
    CheckSettings(library, options.settings);
    RequireReadGroups(options.settings);
    return {};
  }
  const std::vector<Way> ways = WaysToTry(library, options.settings, options.search);
  for (const Way& way : ways) CheckSettings(library, By(way, options.settings));
  return ways;
}

// One reading, from the search for the instrument to its end.
class OneReading {
 public:
  explicit OneReading(const ReadOptions& options)
      : options_(options),
        library_(options.driver),
        ways_(Check(library_, options)),
        line_(Open(options, screen_)),
        sinks_(MakeSinks(options.sinks, screen_)) {}

  RunEnd Run() {
    host::Run run{options_.settings, options_.line, LocalNow()};
    if (!options_.search.Wanted() || Find(*run.settings)) return Read(run);
    const RunEnd end = NotFound();
    Listener().BeginRun(run);
    Listener().EndRun(end);
    return end;
  }

  std::string Summary(const RunEnd& end) const {
    const std::string& out = options_.sinks.out;
    const bool follow = options_.settings.follow;
    return follow ? FollowLine(end, pace_.Rows(), pace_.Elapsed(), out) : ReadingLine(end, out);
  }

 private:
  RunListener& Listener() {
    if (options_.settings.follow) return pace_;
    return meter_;
  }

  // Whether the instrument was found; the settings are its then.
  bool Find(ReadSettings& settings) {
    RunListener deaf;
    MessagePrinter printer(screen_);
    if (screen_.IsTerminal()) screen_.DrawBar("looking for the instrument ...");
    const auto found = FindInstrument(library_, settings, ways_, *line_,
                                      options_.sinks.verbose ? printer : deaf, askStop_);
    screen_.TakeBarAway();
    if (!found) return false;
    settings = By(found->way, settings);
    RequireReadGroups(settings);
    screen_.PrintLine(fmt::format("irvela: {} answers: kind {}, {} bit/s", found->model,
                                  KindName(settings.kind), *settings.baud));
    return true;
  }

  RunEnd Read(const host::Run& run) {
    const std::string unread = UnreadGroups(*run.settings);
    if (!unread.empty()) screen_.PrintLine("irvela: " + unread);
    return RunReading(library_, run, *line_, Listener(), pace_.With(askStop_));
  }

  RunEnd NotFound() {
    if (askStop_() != StopRequest::kNone) return {Ending::kInterrupted, "interrupted"};
    if (!line_->Trouble().empty()) return {Ending::kFailed, line_->Trouble()};
    return {Ending::kFailed, NobodyAnswers(options_.settings, ways_)};
  }

  const ReadOptions& options_;
  const DriverLibrary library_;
  const std::vector<Way> ways_;  // to be tried, when the instrument is to be found first
  Screen screen_;
  const AskStop askStop_ = StopAsked(screen_);
  const std::unique_ptr<LinePort> line_;
  const std::unique_ptr<RunListener> sinks_;
  ProgressMeter meter_{*sinks_};
  FollowPace pace_{meter_, options_.pace};
};

class ReadCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override { parser_.AddTo(app); }
  void Finish() override { parser_.Finish(); }
  int Run() override {
    OneReading reading(options_);
    CountInterrupts();
    const RunEnd end = reading.Run();
    WriteStandardError(ClockLine(end) + IgnoredLine(end.counts) + MissingLines(end) +
                       reading.Summary(end));
    return CodeOf(end);
  }

 private:
  ReadOptions options_;
  ReadParser parser_{options_};
};

}  // namespace

std::unique_ptr<Command> MakeReadCommand() { return std::make_unique<ReadCommand>(); }

}  // namespace host
