#include "simulator/settings.h"

#include <stdexcept>
#include <string>

#include "simulator/moment.h"

namespace simulator {
namespace {

void CheckRange(const char* what, int value, int last) {
  if (value >= 0 && value <= last) return;
  throw std::invalid_argument(std::string(what) + " must lie between 0 and " +
                              std::to_string(last) + ", but is " + std::to_string(value) + ".");
}

}  // namespace

void CheckSettings(const Settings& settings) {
  const Special& special = settings.special;
  CheckRange("The network number", settings.number, 255);
  CheckRange("The version", special.version.value_or(0), 255);
  CheckRange("The mode code", special.modeCode.value_or(0), 255);
  CheckRange("The units code", special.unitsCode, 255);
  CheckRange("The count of log entries", special.logEntries, 100);
  if (settings.clock && !IsDate(*settings.clock)) {
    throw std::invalid_argument("The clock needs a date and time that exist.");
  }
}

}  // namespace simulator
