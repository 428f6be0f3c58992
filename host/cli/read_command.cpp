#include <fmt/format.h>

#include <cstdio>
#include <memory>
#include <optional>

#include "host/cli/commands.h"
#include "host/cli/exit_codes.h"
#include "host/line/open_line.h"
#include "host/output/csv_folder.h"
#include "host/output/follow_printer.h"
#include "host/output/show.h"
#include "host/output/table.h"
#include "host/reading/driver_library.h"
#include "host/reading/reading.h"
#include "host/system/console.h"
#include "host/system/files.h"

namespace host {
namespace {

// Answers questions before there is a line; nothing is read through it.
class NoLine final : public LinePort {
 public:
  bool Control(int) override { return false; }
  bool SetTimeouts(unsigned, unsigned, unsigned, unsigned, unsigned) override { return false; }
  bool SetLine(int, int, int, int, int, int) override { return false; }
  bool SetBuffers(int, int) override { return false; }
  int Read(unsigned, unsigned, void*) override { return 0; }
  int Write(const void*, unsigned) override { return 0; }
  bool Lost() const override { return true; }
  std::string Trouble() const override { return {}; }
  std::string_view Dropped() const override { return {}; }
};

// Where the sections of a reading go.
class Sinks {
 public:
  Sinks(const ReadOptions& options, Progress& progress)
      : follow_(options.display.format,
                [&progress](const std::string& text) { progress.PrintResult(text); }) {
    if (options.settings.follow) {
      listeners_.push_back(&follow_);
    } else {
      listeners_.push_back(&keeper_);
    }
    if (!options.out.empty()) listeners_.push_back(&folder_.emplace(PathOf(options.out)));
    if (!options.raw.empty()) raw_.emplace(PathOf(options.raw));
  }

  const std::vector<SectionListener*>& Listeners() const { return listeners_; }
  RawFileWriter* Raw() { return raw_ ? &*raw_ : nullptr; }
  const SectionKeeper& Kept() const { return keeper_; }

 private:
  SectionKeeper keeper_;
  FollowPrinter follow_;
  std::optional<CsvFolder> folder_;
  std::optional<RawFileWriter> raw_;
  std::vector<SectionListener*> listeners_;
};

std::string LineAddress(const ReadOptions& options) {
  if (options.simulate) return "simulate:" + options.simulated.model;
  return options.tcp.empty() ? "serial:" + options.port : "tcp:" + options.tcp;
}

std::unique_ptr<LinePort> Open(const ReadOptions& options, Progress& progress) {
  simulator::Settings settings = options.simulated;
  settings.report = [&progress](const std::string& text) {
    progress.Print("simulated instrument: " + text);
  };
  return OpenLine(LineAddress(options), settings);
}

const char* EndingName(Ending ending) {
  switch (ending) {
    case Ending::kRead:
      return "read";
    case Ending::kInterrupted:
      return "interrupted";
    default:
      return "failed";
  }
}

void ShowResult(const ReadOptions& options, const SectionKeeper& kept, const ReadingEnd& end) {
  if (options.settings.follow) return;
  const std::string text = ShowSections(
      kept.Sections(),
      {options.display.format, options.display.rows, EndingName(end.ending), end.reason});
  WriteStandardOutput(text);
}

int Report(const ReadOptions& options, const ReadingEnd& end, const Broadcast& told,
           std::size_t ignored) {
  if (ignored > 0) {
    fmt::print(stderr, "irvela: {} of the stream made no sense\n", CountOf(ignored, "piece"));
  }
  const std::string where = options.out.empty() ? "" : ", kept in " + options.out;
  const std::string read = fmt::format("{} with {}{}", CountOf(told.Sections(), "section"),
                                       CountOf(told.Rows(), "row"), where);
  switch (end.ending) {
    case Ending::kRead:
      fmt::print(stderr, "irvela: read {}\n", read);
      return kRead;
    case Ending::kInterrupted:
      fmt::print(stderr, "irvela: interrupted after {}\n", read);
      return kInterrupted;
    default:
      fmt::print(stderr, "irvela: the reading failed after {}: {}\n", read, end.reason);
      return kFailed;
  }
}

void CheckSettings(const DriverLibrary& library, const ReadSettings& settings, Progress& progress) {
  SectionKeeper unused;
  Receiver stream(unused, nullptr, progress, false);
  NoLine port;
  const DriverPointer driver = library.Create(stream, port);
  CheckSettings(*driver, settings);
}

}  // namespace

int Read(const ReadOptions& options) {
  Progress progress;
  const DriverLibrary library(options.driver);
  // Wrong usage is told before a line is opened or a file begun.
  CheckSettings(library, options.settings, progress);
  const auto line = Open(options, progress);
  Sinks sinks(options, progress);
  Broadcast broadcast(sinks.Listeners());
  Receiver receiver(broadcast, sinks.Raw(), progress, options.verbose);
  CountInterrupts();
  DriverPointer driver = library.Create(receiver, *line);
  const ReadingEnd end =
      RunReading(*driver, options.settings, *line, receiver, progress, Interrupted);
  driver.reset();  // its thread is gone from here on
  const std::size_t ignored = receiver.Finish();
  progress.Clear();
  ShowResult(options, sinks.Kept(), end);
  return Report(options, end, broadcast, ignored);
}

}  // namespace host
