// What each protocol does with the list of its models. A Model has a ModelInfo info.
#pragma once

#include <algorithm>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulator/instrument.h"

namespace simulator {

// Throws std::invalid_argument for a name that no model has.
template <typename Model>
const Model& FindIn(std::span<const Model* const> models, const std::string& name) {
  const auto found = std::find_if(models.begin(), models.end(), [&](const Model* model) {
    return name == model->info.choice.name;
  });
  if (found != models.end()) return **found;
  throw std::invalid_argument("There is no simulated model \"" + name + "\".");
}

template <typename Model>
std::vector<ModelInfo> InfosOf(std::span<const Model* const> models) {
  std::vector<ModelInfo> infos;
  for (const Model* model : models) infos.push_back(model->info);
  return infos;
}

}  // namespace simulator
