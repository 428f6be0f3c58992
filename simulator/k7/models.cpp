#include "simulator/k7/model.h"
#include "simulator/model_list.h"

namespace simulator::k7 {
namespace {

constexpr const Model* kModels[] = {&kModel521, &kModel523};

}  // namespace

std::span<const Model* const> AllModels() { return kModels; }

const Model& FindModel(const std::string& name) { return FindIn(AllModels(), name); }

}  // namespace simulator::k7
