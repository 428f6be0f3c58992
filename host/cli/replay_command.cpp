#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "host/cli/commands.h"
#include "host/cli/replay_run.h"
#include "host/cli/sink_options.h"
#include "host/reading/replay_log.h"
#include "host/system/console.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {
namespace {

class ReplayCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override;
  int Run() override;

 private:
  int Show(const ReadingTrace& traced) const;
  int CompareDrivers(const ReadingTrace& traced) const;

  std::string file_;
  std::string against_;  // another driver, or empty
  std::string driver_;   // of the DLL, or empty
  SinkOptions sinks_;
};

void ReplayCommand::AddTo(CLI::App& app) {
  app.add_option("file", file_, "what irvela read --trace kept")->required()->option_text("FILE");
  app.add_option(
         "--against", against_,
         "another build of the driver: compare what both make of the trace, show nothing else")
      ->option_text("DRIVER");
  AddReadingSinkOptions(app, sinks_);
  AddDriverOption(app, driver_);
  app.footer(
      "Examples:\n"
      "  irvela replay reading.trace\n"
      "  irvela replay reading.trace --format json -v\n"
      "  irvela replay reading.trace --against ./libTKSplDrv.so\n"
      "Exit code: that of the recorded reading; 1 where the replay departs from the trace, or the\n"
      "trace is cut, damaged or of a newer version.");
}

int ReplayCommand::Show(const ReadingTrace& traced) const {
  const DriverLibrary library(driver_);
  Screen screen;
  SinkOptions kept = sinks_;
  kept.follow = traced.reading.settings.follow;
  const auto sinks = MakeSinks(kept, screen);
  const Replayed done = RunReplay(traced, kept, library, screen, *sinks);
  const bool told = done.trouble.empty() || done.trouble == done.end.reason;
  if (!told) WriteStandardError("irvela: " + done.trouble + '\n');
  return done.exitCode;
}

// What one driver makes of the trace.
ReplayLog LogOf(const ReadingTrace& traced, const std::string& driver) {
  const DriverLibrary library(driver);
  Screen screen;
  ReplayLog log;
  log.SetTrouble(RunReplay(traced, {}, library, screen, log).trouble);
  return log;
}

int ReplayCommand::CompareDrivers(const ReadingTrace& traced) const {
  const ReplayLog ours = LogOf(traced, driver_);
  const ReplayLog theirs = LogOf(traced, against_);
  const std::string difference = DifferenceOf(ours, theirs, against_);
  if (!difference.empty()) {
    WriteStandardError("irvela: " + difference + '\n');
    return kFailed;
  }
  WriteStandardOutput(fmt::format("both drivers do the same: {}\n", ours.Summary()));
  if (ours.Trouble().empty()) return kSuccess;
  WriteStandardError("irvela: but not what the trace tells: " + ours.Trouble() + '\n');
  return kFailed;
}

int ReplayCommand::Run() {
  const ReadingTrace traced = LoadReadingTrace(PathOf(file_));
  CountInterrupts();
  return against_.empty() ? Show(traced) : CompareDrivers(traced);
}

}  // namespace

std::unique_ptr<Command> MakeReplayCommand() { return std::make_unique<ReplayCommand>(); }

}  // namespace host
