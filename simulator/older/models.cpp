#include <stdexcept>
#include <string>

#include "simulator/older/model.h"

namespace simulator::older {
namespace {

constexpr const Model* kModels[] = {&kModel521, &kModel521x, &kModel522, &kModel523, &kModel721};

}  // namespace

std::span<const Model* const> AllModels() { return kModels; }

const Model& FindModel(const std::string& name) {
  std::string names;
  for (const Model* model : kModels) {
    if (name == model->choice.name) return *model;
    names += std::string(names.empty() ? "" : ", ") + model->choice.name;
  }
  throw std::invalid_argument("There is no simulated model \"" + name + "\"; there are " + names +
                              ".");
}

}  // namespace simulator::older
