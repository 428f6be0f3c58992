// The memory of the models whose databases and logs are texts: it follows from the model's
// description alone.
#pragma once

#include <memory>

#include "simulator/older/model.h"

namespace simulator::older {

std::unique_ptr<Memory> MakeTextMemory(const Model& model, const Values& values);

}  // namespace simulator::older
