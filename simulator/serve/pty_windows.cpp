#include <stdexcept>

#include "simulator/simulator.h"

namespace simulator {

std::unique_ptr<Served> ServePty(const Settings&, const std::string&) {
  throw std::runtime_error("There are no pseudo terminals on Windows: use --tcp.");
}

}  // namespace simulator
