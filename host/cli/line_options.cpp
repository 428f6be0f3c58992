#include "host/cli/line_options.h"

#include <CLI/CLI.hpp>

#include "host/line/stretched_line.h"
#include "host/reading/settings.h"

namespace host {

std::unique_ptr<LinePort> Open(const LineChoice& choice, const LineReport& report) {
  auto line = OpenLine(choice.line, choice.simulated, report);
  if (choice.stretch == 1) return line;
  return std::make_unique<StretchedLine>(std::move(line), choice.stretch);
}

void LineOptions::AddTo(CLI::App& app) {
  CLI::Option_group* line = app.add_option_group("Line", "where the instrument is, one of");
  line->add_option("--port", port_, "serial device: /dev/ttyUSB0, COM3")->option_text("DEVICE");
  line->add_option("--tcp", tcp_, "gateway that passes raw bytes")->option_text("HOST:PORT");
  line->add_option("--rfc2217", rfc2217_, "gateway that sets its line by RFC 2217")
      ->option_text("HOST:PORT");
  line->add_option("--simulate", model_, "a simulated instrument (see irvela models)")
      ->option_text("MODEL");
  line->require_option(1);
  app.add_option("--stretch", chosen_.stretch, "wait so many times as long for replies, 1 to 20")
      ->check(CLI::Range(1.0, 20.0))
      ->option_text("FACTOR");
}

void LineOptions::Finish() {
  if (!model_.empty()) {
    simulated_.Finish("--simulate", model_);
    chosen_.line = "simulate:" + model_;
    return;
  }
  if (simulated_.Given()) {
    throw UsageError("--clock, --fault, --sim-units and --also go with --simulate");
  }
  chosen_.line = "serial:" + port_;
  if (!tcp_.empty()) chosen_.line = "tcp:" + tcp_;
  if (!rfc2217_.empty()) chosen_.line = "rfc2217:" + rfc2217_;
  CheckLineAddress(chosen_.line);
}

}  // namespace host
