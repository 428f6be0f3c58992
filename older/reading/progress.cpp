#include <algorithm>

#include "driver/read_groups.h"
#include "older/reading/period.h"
#include "older/reading/reading.h"

namespace older {

void PlanProgress(TKSplImpl& reader, const ProgressWeights& weights) {
  // The span is a signed 32-bit number; what follows has room for its sums.
  const auto span =
      static_cast<std::int32_t>(HourOf(reader.driver.dateTo) - HourOf(reader.driver.dateFrom));
  const std::int64_t hours = std::max(span, 0);
  const std::int64_t days = hours / 24 + 1;
  const std::int64_t months = hours / 24 / 30 + 1;
  std::int64_t units = 3;
  if (GroupWanted(reader.driver, ReadGroup::kHours)) units += hours + 1;
  if (GroupWanted(reader.driver, ReadGroup::kDays)) units += days + 1;
  if (GroupWanted(reader.driver, ReadGroup::kMonths)) units += months + 1;
  if (GroupWanted(reader.driver, ReadGroup::kDatabase)) units += weights.database;
  if (GroupWanted(reader.driver, ReadGroup::kCurrent)) units += weights.operative;
  if (weights.doubled) units = units * 2 + 3;
  reader.driver.prStep = 100.0F / static_cast<float>(units);
  reader.driver.IncPr(5);
}

}  // namespace older
