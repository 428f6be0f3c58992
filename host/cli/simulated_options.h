// The options that make a simulated instrument, for the commands that have one.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "TKSplDrv/types.h"
#include "simulator/simulator.h"

namespace CLI {
class App;
}

namespace host {

class SimulatedOptions {
 public:
  // settings must live as long as the options.
  explicit SimulatedOptions(simulator::Settings& settings) : settings_(settings) {}
  void AddTo(CLI::App& app);
  // Once all is known; option: what named the model. Throws UsageError.
  void Finish(const std::string& option, const std::string& model);
  // Whether any was given that a real instrument does not have.
  bool Given() const {
    return !clock_.empty() || !faults_.empty() || !units_.empty() || !also_.empty();
  }
  // The clock that stands still, if there is one.
  std::optional<SYSTEMTIME> Clock() const;

 private:
  simulator::Settings& settings_;
  std::string clock_;
  std::vector<std::string> faults_;
  std::string units_;
  std::vector<std::string> also_;
};

}  // namespace host
