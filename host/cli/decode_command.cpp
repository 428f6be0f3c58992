#include <CLI/CLI.hpp>

#include "host/cli/commands.h"
#include "host/cli/sink_options.h"
#include "host/cli/summary.h"
#include "host/reading/kept_stream.h"
#include "host/system/files.h"

namespace host {
namespace {

class DecodeCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override {
    app.add_option("file", file_, "what irvela read --raw kept")->required()->option_text("FILE");
    AddSinkOptions(app, sinks_);
    app.footer(
        "Examples:\n"
        "  irvela decode reading.raw\n"
        "  irvela decode reading.raw --format json");
  }
  void Finish() override {
    if (file_ == "-") throw UsageError("decode -: it reads a file, not a pipe");
  }
  int Run() override {
    RawFileReader raw(PathOf(file_));
    Screen screen;
    const auto sinks = MakeSinks(sinks_, screen);
    const RunEnd end = RunKeptStream(raw, file_, *sinks);
    std::string lines = IgnoredLine(end.counts);
    if (!end.reason.empty()) lines.append("irvela: ").append(end.reason).append(1, '\n');
    WriteStandardError(lines);
    return ExitCodeOf(end);
  }

 private:
  std::string file_;
  SinkOptions sinks_;
};

}  // namespace

std::unique_ptr<Command> MakeDecodeCommand() { return std::make_unique<DecodeCommand>(); }

}  // namespace host
