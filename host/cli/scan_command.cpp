#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>
#include <utility>

#include "host/cli/checks.h"
#include "host/cli/commands.h"
#include "host/cli/line_options.h"
#include "host/cli/number_list.h"
#include "host/cli/sink_options.h"
#include "host/cli/stop_asked.h"
#include "host/line/trace_line.h"
#include "host/output/message_printer.h"
#include "host/output/progress_display.h"
#include "host/output/raw_file_sink.h"
#include "host/output/scan_list.h"
#include "host/reading/patience.h"
#include "host/reading/search.h"
#include "host/reading/traced_scan.h"
#include "host/system/clock.h"
#include "host/system/console.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {
namespace {

constexpr int kLargestNumber = 255;
constexpr int kFastest = 1'000'000;  // bit/s

struct ScanOptions : LineChoice {
  std::vector<int> numbers;
  std::vector<int> speeds;  // bit/s; none: the usual one of each kind
  bool anySpeed = false;
  std::string kind = "auto";
  bool json = false;
  bool verbose = false;
  std::string trace;   // file, or empty
  std::string driver;  // of the DLL, or empty
};

// All ways at each speed that is named: those that a kind does not offer are left out of it.
std::vector<Way> WaysOf(const DriverLibrary& library, const ScanOptions& options) {
  const bool anyKind = options.kind == "auto";
  ReadSettings settings;
  if (options.kind == "k7") settings.kind = tav::Mode::kK7;
  if (options.speeds.empty()) return WaysToTry(library, settings, {anyKind, options.anySpeed});
  std::vector<Way> ways;
  for (const int speed : options.speeds) {
    settings.baud = speed;
    const auto those = WaysToTry(library, settings, {anyKind, false});
    ways.insert(ways.end(), those.begin(), those.end());
  }
  return ways;
}

// Shows answers as they come, and how far the scan is.
class ScanScreen final : public ScanListener {
 public:
  explicit ScanScreen(Screen& screen) : screen_(screen), display_(screen) {}
  void ShowProgress(const Progress& progress) override { display_.ShowProgress(progress); }
  void TakeAnswer(const ScanAnswer& answer) override {
    const std::string line = AnswerLine(answer);
    if (!line.empty()) screen_.PrintLine("irvela: " + line);
  }

 private:
  Screen& screen_;
  ProgressDisplay display_;
};

class LiveScan {
 public:
  explicit LiveScan(const ScanOptions& options)
      : options_(options),
        library_(options.driver),
        plan_{options.numbers, WaysOf(library_, options)} {
    if (!options.trace.empty()) CheckNewFile("--trace", options.trace, "", false);
    // What a simulated instrument finds wrong is not told: most requests are meant for others.
    line_ = Open(options, [this](const auto& text) { screen_.PrintLine("irvela: " + text); });
    if (!options.trace.empty()) BeginTrace();
  }

  // Returns the exit code.
  int Run() {
    CountingLine line(std::move(line_));
    Ask(line);
    const int code = CodeOf(line);
    WriteStandardOutput(options_.json ? ScanJson(answers_) : ScanText(answers_));
    WriteStandardError(EndTrace(code) + Summary(line));
    return code;
  }

 private:
  void BeginTrace() {
    trace_.emplace(PathOf(options_.trace), ToJson(TracedScan{plan_, options_.line, LocalNow()}));
    line_ = std::make_unique<TraceLine>(std::move(line_), *trace_);
  }
  std::string EndTrace(int code) {
    if (!trace_) return {};
    trace_->End(ScanEndJson(code));
    if (trace_->Trouble().empty()) return {};
    return "irvela: the trace is not whole: " + trace_->Trouble() + '\n';
  }
  void Ask(CountingLine& line) {
    RunListener deaf;
    MessagePrinter printer(screen_);
    RunListener& messages = options_.verbose ? static_cast<RunListener&>(printer) : deaf;
    ScanScreen shown(screen_);
    const auto begun = std::chrono::steady_clock::now();
    answers_ = ScanLine(library_, plan_, {line, messages, StopAsked(screen_)}, shown);
    screen_.TakeBarAway();
    took_ = std::chrono::round<std::chrono::seconds>(std::chrono::steady_clock::now() - begun);
  }
  int CodeOf(const CountingLine& line) const {
    if (Interrupted()) return InterruptExitCode();
    const bool found = std::any_of(answers_.begin(), answers_.end(), [](const auto& answer) {
      return answer.kind == ScanAnswer::Kind::kAnswers;
    });
    return found && !line.Lost() ? kSuccess : kFailed;
  }
  std::string Summary(const CountingLine& line) const {
    std::string text;
    if (!line.Trouble().empty()) text += "irvela: " + line.Trouble() + '\n';
    return text + fmt::format("irvela: {}asked {} of {} numbers in {}: {}\n",
                              Interrupted() ? "interrupted; " : "", answers_.size(),
                              plan_.numbers.size(), TimeText(took_), ScanSummary(answers_));
  }

  const ScanOptions& options_;
  const DriverLibrary library_;
  const ScanPlan plan_;
  Screen screen_;
  std::optional<TraceWriter> trace_;
  std::unique_ptr<LinePort> line_;
  std::vector<ScanAnswer> answers_;
  std::chrono::seconds took_{};
};

class ScanCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override;
  void Finish() override;
  int Run() override {
    LiveScan scan(options_);
    CountInterrupts();
    return scan.Run();
  }

 private:
  void AddQuestions(CLI::App& app);

  ScanOptions options_;
  LineOptions line_{options_};
  std::string numbers_ = "1-32";
  std::string speeds_;
};

void ScanCommand::Finish() {
  line_.Finish();
  options_.numbers = RequireNumbers("--numbers", numbers_, kLargestNumber);
  options_.anySpeed = speeds_ == "auto";
  if (speeds_.empty() || options_.anySpeed) return;
  options_.speeds = RequireNumbers("--speeds", speeds_, kFastest);
}

void ScanCommand::AddQuestions(CLI::App& app) {
  app.add_option("--numbers", numbers_, "network numbers to ask, in this order")
      ->option_text("LIST")
      ->default_str(numbers_);
  app.add_option("--speeds,--speed", speeds_,
                 "of the line in bit/s, else the usual one; auto: all that the driver offers")
      ->option_text("LIST");
  app.add_option("--kind", options_.kind, "protocol: older (52x, 72x), k7, or auto: both")
      ->transform(OneOf({"auto", "older", "k7"}))
      ->option_text("NAME")
      ->default_str(options_.kind);
}

void ScanCommand::AddTo(CLI::App& app) {
  line_.AddTo(app);
  AddQuestions(app);
  AddJsonOption(app, options_.json);
  app.add_flag("-v,--verbose", options_.verbose, "show the driver's messages");
  app.add_option("--trace", options_.trace, "keep what happens on the line")->option_text("FILE");
  line_.AddSimulatedTo(app);
  AddDriverOption(app, options_.driver);
  app.footer(
      "Examples:\n"
      "  irvela scan --port /dev/ttyUSB0\n"
      "  irvela scan --tcp gateway:4001 --numbers 1-8,100-120 --kind k7 --speeds auto\n"
      "  irvela scan --simulate 521 --also 522:7 --also k7-523:9 --numbers 1-10\n"
      "A silent number costs about 1.6 s by the older protocol and 0.9 s by k7. Ctrl-C ends a\n"
      "scan and keeps what was found.\n"
      "Exit code: 0 an instrument answers, 1 none does or the line failed, 2 wrong usage,\n"
      "130 interrupted, 143 terminated, 129 hung up.");
}

}  // namespace

std::unique_ptr<Command> MakeScanCommand() { return std::make_unique<ScanCommand>(); }

}  // namespace host
