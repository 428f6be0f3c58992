#include "simulator/instrument.h"

#include <utility>

#include "simulator/faults.h"
#include "simulator/k7/instrument.h"
#include "simulator/k7/model.h"
#include "simulator/moment.h"
#include "simulator/older/instrument.h"
#include "simulator/older/model.h"

namespace simulator {

std::unique_ptr<Instrument> MakeInstrument(const Settings& settings, Clock now) {
  std::unique_ptr<Instrument> instrument =
      k7::FindModel(settings.model) ? k7::MakeK7Instrument(settings, std::move(now))
                                    : older::MakeOlderInstrument(settings, std::move(now));
  return WithFaults(std::move(instrument), settings.faults, settings.seed);
}

Clock ClockOf(const Settings& settings) {
  if (settings.clock) return [clock = *settings.clock] { return clock; };
  return LocalTime;
}

std::span<const Choice> Models() {
  static const std::vector<Choice> choices = [] {
    std::vector<Choice> all;
    for (const older::Model* model : older::AllModels()) all.push_back(model->choice);
    for (const k7::Model* model : k7::AllModels()) all.push_back(model->choice);
    return all;
  }();
  return choices;
}

}  // namespace simulator
