#include "host/cli/line_options.h"

#include <CLI/CLI.hpp>

#include "host/line/open_line.h"
#include "host/reading/settings.h"

namespace host {

void LineOptions::AddTo(CLI::App& app) {
  CLI::Option_group* line = app.add_option_group("Line", "where the instrument is, one of");
  line->add_option("--port", port_, "serial device: /dev/ttyUSB0, COM3")->option_text("DEVICE");
  line->add_option("--tcp", tcp_, "gateway that passes raw bytes")->option_text("HOST:PORT");
  line->add_option("--simulate", model_, "a simulated instrument (see irvela models)")
      ->option_text("MODEL");
  line->require_option(1);
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
  chosen_.line = tcp_.empty() ? "serial:" + port_ : "tcp:" + tcp_;
  CheckLineAddress(chosen_.line);
}

}  // namespace host
