#include "simulator/catalogue/catalogue.h"

#include <stdexcept>
#include <utility>

#include "simulator/faults.h"
#include "simulator/k7/protocol.h"
#include "simulator/moment.h"
#include "simulator/older/protocol.h"
#include "simulator/shared_line.h"

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

std::unique_ptr<Instrument> MakeOne(const Settings& settings, Clock now) {
  const Protocol& protocol = Find(settings.model).protocol;
  return WithFaults(protocol.make(settings, std::move(now)), protocol.faults(), settings);
}

}  // namespace

std::unique_ptr<Instrument> MakeInstrument(const Settings& settings, Clock now) {
  if (settings.neighbours.empty()) return MakeOne(settings, std::move(now));
  Settings first = settings;
  first.report = nullptr;
  std::vector<std::unique_ptr<Instrument>> all;
  all.push_back(MakeOne(first, now));
  Settings other;
  other.seed = settings.seed;
  for (const Neighbour& neighbour : settings.neighbours) {
    other.model = neighbour.model;
    other.number = neighbour.number;
    ++other.seed;
    all.push_back(MakeOne(other, now));
  }
  return OnSharedLine(std::move(all));
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
