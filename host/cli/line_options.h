// The options that name a line, for the commands that open one.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/cli/simulated_options.h"
#include "host/line/open_line.h"

namespace host {

struct LineChoice {
  std::string line;    // its address, as OpenLine takes it
  double stretch = 1;  // of its time limits
  simulator::Settings simulated;
};

// report: told when a gateway closes the connection. Throws as OpenLine does.
std::unique_ptr<LinePort> Open(const LineChoice& choice, const LineReport& report);

class LineOptions {
 public:
  // chosen must live as long as the options.
  explicit LineOptions(LineChoice& chosen) : chosen_(chosen), simulated_(chosen.simulated) {}
  // --port, --tcp, --rfc2217 and --simulate, of which one must be given, and --stretch.
  void AddTo(CLI::App& app);
  // What a simulated instrument may have beside its model.
  void AddSimulatedTo(CLI::App& app) { simulated_.AddTo(app); }
  // Once all is known. Throws UsageError or std::invalid_argument.
  void Finish();
  // Of the simulated instrument; empty: it is none.
  const std::string& Model() const { return model_; }
  // The simulated clock that stands still, if there is one.
  std::optional<SYSTEMTIME> Clock() const { return simulated_.Clock(); }

 private:
  LineChoice& chosen_;
  SimulatedOptions simulated_;
  std::string port_;
  std::string tcp_;
  std::string rfc2217_;
  std::string model_;
};

}  // namespace host
