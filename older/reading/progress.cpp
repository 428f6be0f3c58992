#include <algorithm>

#include "driver/read_groups.h"
#include "older/reading/period.h"
#include "older/reading/reading.h"

namespace older {

void PlanProgress(TKSplImpl& reader, const ProgressWeights& weights) {
  // The span is a signed 32-bit number; what follows has room for its sums.
  const auto span =
      static_cast<std::int32_t>(HourOf(reader.host.dateTo) - HourOf(reader.host.dateFrom));
  const std::int64_t hours = std::max(span, 0);
  const std::int64_t days = hours / 24 + 1;
  const std::int64_t months = hours / 24 / 30 + 1;
  std::int64_t units = 3;
  if (GroupWanted(reader.host, 'H')) units += hours + 1;
  if (GroupWanted(reader.host, 'S')) units += days + 1;
  if (GroupWanted(reader.host, 'M')) units += months + 1;
  if (GroupWanted(reader.host, 'B')) units += weights.database;
  if (GroupWanted(reader.host, 'T')) units += weights.operative;
  if (weights.doubled) units = units * 2 + 3;
  reader.host.prStep = 100.0F / static_cast<float>(units);
  reader.host.IncPr(5);
}

}  // namespace older
