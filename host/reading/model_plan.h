// What a reading of each model brings, section by section.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "TKSplDrv/records.h"
#include "host/reading/messages.h"

namespace host {

struct PlannedSection {
  tav::TitleKind kind{};
  std::string name;  // as its title has it: "ТВ1 ИЗМ"
  tav::ReadGroup group{};
  std::string part;  // of the instrument, as the driver calls it: "ТВ1"
};

struct ModelPlan {
  std::string_view greeting;  // the driver's word for the model, see FindPlan
  tav::Mode kind{};
  std::vector<PlannedSection> sections;  // in the order in which the driver reads them
  std::vector<std::string> parts;        // what continuous reading goes through
};

// The plan of the model that a message names; null when it names none.
const ModelPlan* FindPlan(tav::Mode kind, const Message& message);

}  // namespace host
