// The options that name a line, for the commands that open one.
#pragma once

#include <optional>
#include <string>

#include "host/cli/simulated_options.h"

namespace host {

struct LineChoice {
  std::string line;  // its address, as OpenLine takes it
  simulator::Settings simulated;
};

class LineOptions {
 public:
  // chosen must live as long as the options.
  explicit LineOptions(LineChoice& chosen) : chosen_(chosen), simulated_(chosen.simulated) {}
  // --port, --tcp and --simulate, of which one must be given.
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
  std::string model_;
};

}  // namespace host
