#include "simulator/model_list.h"
#include "simulator/older/model.h"

namespace simulator::older {
namespace {

constexpr const Model* kModels[] = {&kModel521, &kModel521x, &kModel522, &kModel523, &kModel721};

}  // namespace

std::span<const Model* const> AllModels() { return kModels; }

const Model& FindModel(const std::string& name) { return FindIn(AllModels(), name); }

}  // namespace simulator::older
