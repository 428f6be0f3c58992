#include <fmt/format.h>
#include <fmt/ranges.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>
#include <utility>

#include "host/cli/commands.h"
#include "host/cli/sink_options.h"
#include "host/output/fields_list.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"
#include "simulator/simulator.h"

namespace host {
namespace {

std::string Line(const simulator::Choice& choice) {
  return fmt::format("  {:<16} {}\n", choice.name, choice.description);
}

std::string UnitsOf(const char* model) {
  std::string units;
  for (const simulator::Choice& code : simulator::UnitsOf(model)) {
    units += fmt::format("{}{} {}", units.empty() ? "" : "; ", code.name, code.description);
  }
  return units;
}

bool Has(const char* model, const char* fault) {
  const auto faults = simulator::FaultsOf(model);
  return std::any_of(faults.begin(), faults.end(),
                     [&](const auto& own) { return std::string_view(own.name) == fault; });
}

// The models that have a fault; empty: all of them.
std::string ModelsWith(const char* fault) {
  std::vector<std::string_view> models;
  for (const simulator::Choice& model : simulator::Models()) {
    if (Has(model.name, fault)) models.emplace_back(model.name);
  }
  if (models.size() == simulator::Models().size()) return {};
  return fmt::format("{}", fmt::join(models, ", "));
}

std::string ModelsText() {
  std::string text = "Instruments, for --simulate and simulate, each with its --sim-units:\n";
  for (const simulator::Choice& model : simulator::Models()) {
    text += Line(model) + Line({"", UnitsOf(model.name).c_str()});
  }
  text += "\nFaults, for --fault:\n";
  std::string group;
  for (const simulator::Choice& fault : simulator::Faults()) {
    const std::string models = ModelsWith(fault.name);
    if (models != std::exchange(group, models)) text += fmt::format("\n{} only:\n", models);
    text += Line(fault);
  }
  return text;
}

class ModelsCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override {
    CLI::Option* fields = app.add_flag("--fields", fields_,
                                       "what every column means: field, quantity, pipe, true unit");
    AddJsonOption(app, json_)->needs(fields)->description("of the fields: table or json");
  }
  int Run() override {
    WriteStandardOutput(!fields_ ? ModelsText() : json_ ? FieldsJson() : FieldsText());
    return kSuccess;
  }

 private:
  bool fields_ = false;  // what every column means, instead of the models
  bool json_ = false;    // of the fields
};

}  // namespace

std::unique_ptr<Command> MakeModelsCommand() { return std::make_unique<ModelsCommand>(); }

}  // namespace host
