#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <map>

#include "host/cli/checks.h"
#include "host/cli/commands.h"
#include "host/cli/explained_input.h"
#include "host/frames/feed.h"
#include "host/output/frame_list.h"
#include "host/reading/settings_json.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {
namespace {

using frames::Direction;
using frames::Explainer;
using frames::Frame;
using frames::FrameFeed;
using frames::Protocol;

const std::map<std::string, Protocol> kProtocols = {
    {"auto", Protocol::kUnknown}, {"older", Protocol::kOlder}, {"k7", Protocol::kK7}};

std::vector<std::string> Models() {
  const auto names = frames::ModelNames();
  return {names.begin(), names.end()};
}

ByteView View(const std::string& bytes) {
  return {reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()};
}

void Pass(const TraceEvent& event, FrameFeed& feed) {
  feed.Drop(View(event.result.dropped), event.ms);
  if (event.call.name == PortCall::Name::kWrite) feed.Send(View(event.call.sent), event.ms);
  if (event.call.name == PortCall::Name::kRead) feed.Receive(View(event.result.received), event.ms);
}

class ExplainCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override;
  void Finish() override;
  int Run() override;

 private:
  void Show(const Frame& frame, ByteView bytes, std::optional<long long> ms);
  void ShowInput(const ExplainedInput& input);
  void ShowTrace(const Trace& trace);
  Protocol ProtocolOf(const TraceEvent& run) const;

  std::vector<std::string> words_;
  Protocol protocol_ = Protocol::kUnknown;
  std::string model_;
  bool json_ = false;
  bool short_ = false;
  std::string out_;
};

void ExplainCommand::AddTo(CLI::App& app) {
  app.add_option("what", words_, "bytes in hex, or a file: a trace, or lines of hex")
      ->required()
      ->option_text("HEX|FILE");
  app.add_option_function<std::string>(
         "--kind", [this](const std::string& name) { protocol_ = kProtocols.at(name); },
         "protocol: older, k7, or auto: as the bytes say")
      ->transform(OneOf({"older", "k7", "auto"}))
      ->option_text("NAME")
      ->default_str("auto");
  app.add_option("--model", model_, "the instrument, where no identification tells it")
      ->transform(OneOf(Models()))
      ->option_text("MODEL");
  app.add_flag("--summary", short_, "one line for each frame");
  app.add_option_function<std::string>(
         "--format", [this](const std::string& name) { json_ = name == "json"; },
         "table, or json: an object a line")
      ->transform(OneOf({"table", "json"}))
      ->option_text("NAME")
      ->default_str("table");
  app.footer(
      "Examples:\n"
      "  irvela explain 10 01 48 74 03 01 05 39 16\n"
      "  irvela explain 100152f3000600b316 --model 522\n"
      "  irvela explain trace.jsonl --summary");
}

void ExplainCommand::Finish() {
  if (protocol_ == Protocol::kUnknown || model_.empty()) return;
  if (model_.starts_with("k7") == (protocol_ == Protocol::kK7)) return;
  throw UsageError("--model and --kind: this model speaks the other protocol");
}

int ExplainCommand::Run() {
  ShowInput(LoadExplainedInput(words_));
  WriteStandardOutput(out_);
  return kSuccess;
}

void ExplainCommand::ShowInput(const ExplainedInput& input) {
  if (input.trace) return ShowTrace(*input.trace);
  Explainer explainer(protocol_, model_);
  for (const ExplainedLine& line : input.lines) {
    const ByteView bytes = line.bytes;
    for (const Frame& frame : explainer.Explain(bytes, line.direction)) {
      Show(frame, bytes.subspan(frame.First(), frame.Size()), {});
    }
  }
}

void ExplainCommand::ShowTrace(const Trace& trace) {
  FrameFeed feed(
      [this](const Frame& frame, ByteView bytes, long long ms) { Show(frame, bytes, ms); });
  for (const TraceEvent& event : trace.events) {
    if (event.kind == TraceEvent::Kind::kBeginRun) {
      feed.Begin(Explainer(ProtocolOf(event), model_));
    } else if (event.kind == TraceEvent::Kind::kCall) {
      Pass(event, feed);
    }
  }
  feed.Finish();
}

// The one that was asked for, else the run's.
Protocol ExplainCommand::ProtocolOf(const TraceEvent& run) const {
  if (protocol_ != Protocol::kUnknown || !model_.empty()) return protocol_;
  return ParseSettings(run.settings).kind == tav::Mode::kK7 ? Protocol::kK7 : Protocol::kOlder;
}

void ExplainCommand::Show(const Frame& frame, ByteView bytes, std::optional<long long> ms) {
  if (json_) {
    out_ += FrameJson(frame, bytes, ms) + '\n';
    return;
  }
  if (!short_ && !out_.empty()) out_ += '\n';
  if (ms) out_ += fmt::format("{:>10.3f} s ", static_cast<double>(*ms) / 1000);
  out_ += short_ ? FrameLine(frame) + '\n' : FrameText(frame, bytes);
}

}  // namespace

std::unique_ptr<Command> MakeExplainCommand() { return std::make_unique<ExplainCommand>(); }

}  // namespace host
