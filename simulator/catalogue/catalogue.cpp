#include "simulator/catalogue/catalogue.h"

#include <stdexcept>
#include <utility>

#include "simulator/faults.h"
#include "simulator/k7/protocol.h"
#include "simulator/moment.h"
#include "simulator/older/protocol.h"

namespace simulator {
namespace {

constexpr const Protocol* kProtocols[] = {&older::kProtocol, &k7::kProtocol};

std::vector<Choice> AllModels() {
  std::vector<Choice> models;
  for (const Protocol* protocol : kProtocols) {
    for (const ModelInfo& info : protocol->models()) models.push_back(info.choice);
  }
  return models;
}

void Add(std::vector<Choice>& choices, std::span<const FaultKind> kinds) {
  for (const FaultKind& kind : kinds) choices.push_back(kind.choice);
}

std::vector<Choice> AllFaults() {
  std::vector<Choice> faults;
  Add(faults, LineFaults());
  for (const Protocol* protocol : kProtocols) Add(faults, protocol->faults());
  return faults;
}

struct Known {
  const Protocol& protocol;
  ModelInfo info;
};

Known Find(const std::string& model) {
  for (const Protocol* protocol : kProtocols) {
    for (const ModelInfo& info : protocol->models()) {
      if (model == info.choice.name) return {*protocol, info};
    }
  }
  throw std::invalid_argument("There is no simulated model \"" + model + "\".");
}

}  // namespace

std::unique_ptr<Instrument> MakeInstrument(const Settings& settings, Clock now) {
  const Protocol& protocol = Find(settings.model).protocol;
  return WithFaults(protocol.make(settings, std::move(now)), protocol.faults(), settings);
}

Clock ClockOf(const Settings& settings) {
  if (settings.clock) return [clock = *settings.clock] { return clock; };
  return LocalTime;
}

std::span<const Choice> Models() {
  static const std::vector<Choice> models = AllModels();
  return models;
}

std::span<const Choice> UnitsOf(const std::string& model) { return Find(model).info.units; }

std::span<const Choice> Faults() {
  static const std::vector<Choice> faults = AllFaults();
  return faults;
}

std::vector<Choice> FaultsOf(const std::string& model) {
  std::vector<Choice> faults;
  Add(faults, LineFaults());
  Add(faults, Find(model).protocol.faults());
  return faults;
}

}  // namespace simulator
