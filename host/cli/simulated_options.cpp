#include "host/cli/simulated_options.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>

#include "host/cli/checks.h"
#include "host/cli/dates.h"
#include "host/reading/settings.h"

namespace host {
namespace {

std::string NamesOf(std::span<const simulator::Choice> choices) {
  std::string names;
  for (const simulator::Choice& choice : choices) {
    names += (names.empty() ? "" : ", ") + std::string(choice.name);
  }
  return names;
}

std::string Chosen(const std::string& what, const std::string& name,
                   std::span<const simulator::Choice> choices) {
  const bool known = std::any_of(choices.begin(), choices.end(),
                                 [&](const auto& choice) { return choice.name == name; });
  if (known) return name;
  throw UsageError(fmt::format("{}: there is no {}; there are {}", what, name, NamesOf(choices)));
}

// "noise", "noise:7", "frozen:20:240".
simulator::Fault FaultOf(const std::string& text, const std::string& model) {
  const std::vector<std::string> parts = CLI::detail::split(text, ':');
  simulator::Fault fault;
  fault.kind = Chosen("--fault of " + model, parts[0], simulator::FaultsOf(model));
  const std::size_t most = fault.kind == "frozen" ? 3 : 2;
  int* const numbers[] = {&fault.every, &fault.length};
  bool good = parts.size() <= most && text.back() != ':';
  for (std::size_t i = 1; good && i < parts.size(); ++i) {
    int& number = *numbers[i - 1];
    good = CLI::detail::lexical_cast(parts[i], number) && number >= 1;
  }
  if (!good) throw UsageError(fmt::format("--fault {}: a colon needs a number from 1 on", text));
  return fault;
}

// "522:7".
simulator::Neighbour NeighbourOf(const std::string& text) {
  const std::vector<std::string> parts = CLI::detail::split(text, ':');
  simulator::Neighbour neighbour;
  neighbour.model = Chosen("--also", parts[0], simulator::Models());
  const bool good = parts.size() == 2 && CLI::detail::lexical_cast(parts[1], neighbour.number) &&
                    neighbour.number >= 0 && neighbour.number <= 255;
  if (!good) throw UsageError(fmt::format("--also {}: a model, a colon and 0 to 255", text));
  return neighbour;
}

}  // namespace

void SimulatedOptions::AddTo(CLI::App& app) {
  app.add_option("--seed", settings_.seed, "the simulated values; the same seed gives the same")
      ->check(WholeNumber(0, 4294967295));
  app.add_option("--line-speed", settings_.lineSpeed,
                 "bit/s at which the simulated line paces its bytes; 0: at once")
      ->check(WholeNumber(0, 10000000));
  app.add_option("--sim-units", units_,
                 "units of the simulated instrument, 0, 1 or 2 (see irvela models)")
      ->option_text("CODE");
  app.add_option("--fault", faults_, "what goes wrong, on every Nth reply (see irvela models)")
      ->option_text("KIND[:N] ...")
      ->expected(1)
      ->take_all();
  app.add_option("--also", also_, "another instrument on the same simulated line")
      ->option_text("MODEL:NUMBER ...")
      ->expected(1)
      ->take_all();
  app.add_option("--clock", clock_, "a simulated clock that stands still")->option_text("TIME");
}

void SimulatedOptions::Finish(const std::string& option, const std::string& model) {
  settings_.model = Chosen(option, model, simulator::Models());
  for (const std::string& fault : faults_) settings_.faults.push_back(FaultOf(fault, model));
  for (const std::string& other : also_) settings_.neighbours.push_back(NeighbourOf(other));
  if (!units_.empty()) {
    const auto codes = simulator::UnitsOf(model);
    settings_.special.unitsCode = std::stoi(Chosen("--sim-units of " + model, units_, codes));
  }
  if (const auto clock = Clock()) {
    settings_.clock = {clock->wYear, clock->wMonth,  clock->wDay,
                       clock->wHour, clock->wMinute, clock->wSecond};
  }
}

std::optional<SYSTEMTIME> SimulatedOptions::Clock() const {
  if (clock_.empty()) return std::nullopt;
  return RequireDate("--clock", clock_, Bound::kFrom);
}

}  // namespace host
