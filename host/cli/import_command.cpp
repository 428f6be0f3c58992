#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "host/cli/commands.h"
#include "host/cli/sink_options.h"
#include "host/cli/summary.h"
#include "host/output/kept_folder.h"
#include "host/output/text.h"
#include "host/reading/kept_stream.h"
#include "host/reading/periods.h"
#include "host/reading/wrapped_listener.h"
#include "host/store/store.h"
#include "host/system/files.h"

namespace host {
namespace {

// The first clock of an instrument that is told.
class FirstClock final : public RunListener {
 public:
  void BeginSection(const Section& section) override {
    if (!clock_ && IsDate(section.title.time)) clock_ = section.title.time;
  }
  const std::optional<TAVDT>& Clock() const { return clock_; }

 private:
  std::optional<TAVDT> clock_;
};

// A run that began at another time.
class RunOf final : public WrappedListener {
 public:
  RunOf(RunListener& to, const SYSTEMTIME& begun) : WrappedListener(to), begun_(begun) {}
  void BeginRun(const Run& run) override {
    Run then = run;
    then.begun = begun_;
    WrappedListener::BeginRun(then);
  }

 private:
  SYSTEMTIME begun_;
};

class ImportCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override;
  int Run() override;

 private:
  RunEnd Tell(const std::string& source, RunListener& listener) const;
  RunEnd Import(const std::string& source) const;

  std::vector<std::string> sources_;
  std::optional<std::string> db_;
  bool replace_ = false;
};

void ImportCommand::AddTo(CLI::App& app) {
  app.add_option("source", sources_, "what irvela read --raw or --out kept: a file or a folder")
      ->required()
      ->option_text("SOURCE...");
  AddStoreOption(app, db_);
  app.add_flag("--replace", replace_, "records that differ from those that are kept replace them");
  app.footer(
      "Examples:\n"
      "  irvela import reading.raw\n"
      "  irvela import --db=archive.db readings/2016-*\n"
      "It adds what the store lacks; what is there stays as it is.");
}

RunEnd ImportCommand::Tell(const std::string& source, RunListener& listener) const {
  const std::filesystem::path path = PathOf(source);
  if (std::filesystem::is_directory(path)) return RunKeptFolder(path, listener);
  RawFileReader raw(path);
  return RunKeptStream(raw, source, listener);
}

// It is dated by the instrument's clock in it: nothing else tells when it was read.
RunEnd ImportCommand::Import(const std::string& source) const {
  FirstClock first;
  const RunEnd seen = Tell(source, first);
  if (seen.counts.sections == 0 || !first.Clock()) return seen;
  const auto report = [](const std::string& line) { WriteStandardError(line + '\n'); };
  const auto store = MakeStoreSink(db_.value_or(""), report, replace_);
  RunOf dated(*store, SystemTimeOf(*first.Clock()));
  return Tell(source, dated);
}

int ImportCommand::Run() {
  int code = 0;
  for (const std::string& source : sources_) {
    const RunEnd end = Import(source);
    if (!end.reason.empty()) WriteStandardError("irvela: " + end.reason + '\n');
    code = std::max(code, ExitCodeOf(end));
  }
  return code;
}

}  // namespace

std::unique_ptr<Command> MakeImportCommand() { return std::make_unique<ImportCommand>(); }

}  // namespace host
