#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <thread>

#include "host/cli/checks.h"
#include "host/cli/commands.h"
#include "host/cli/simulated_options.h"
#include "host/system/console.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {
namespace {

class SimulateCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override;
  void Finish() override { simulated_.Finish("simulate", settings_.model); }
  int Run() override;

 private:
  simulator::Settings settings_;
  SimulatedOptions simulated_{settings_};
  std::string pty_;                    // link to make
  std::optional<std::uint16_t> port_;  // 0: any
};

void SimulateCommand::AddTo(CLI::App& app) {
  app.add_option("model", settings_.model, "the instrument (see irvela models)")
      ->required()
      ->option_text("MODEL");
  CLI::Option_group* line = app.add_option_group("Line", "where it answers, one of");
  line->add_option("--pty", pty_, "a pseudo terminal with this link to it")->option_text("LINK");
  line->add_option("--tcp", port_, "a TCP port; 0 takes a free one")
      ->check(WholeNumber(0, 65535))
      ->option_text("PORT");
  line->require_option(1);
  app.add_option("--number", settings_.number, "network number")->check(WholeNumber(0, 255));
  simulated_.AddTo(app);
  app.footer(
      "Examples:\n"
      "  irvela simulate 521 --pty meter --line-speed 2400\n"
      "  irvela simulate 521 --tcp 4001 --fault flipped-bit:7\n"
      "It answers until Ctrl-C.");
}

int SimulateCommand::Run() {
  settings_.report = [](const std::string& text) { WriteStandardError(text + '\n'); };
  CountInterrupts();
  const auto served =
      port_ ? simulator::ServeTcp(settings_, *port_) : simulator::ServePty(settings_, pty_);
  WriteStandardOutput(fmt::format("model {} number {} answers at {}\n", settings_.model,
                                  settings_.number, served->Address()));
  while (!Interrupted()) std::this_thread::sleep_for(std::chrono::milliseconds(100));
  return kSuccess;
}

}  // namespace

std::unique_ptr<Command> MakeSimulateCommand() { return std::make_unique<SimulateCommand>(); }

}  // namespace host
