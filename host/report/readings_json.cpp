#include "host/report/readings_json.h"

#include "host/report/field_json.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

Json JsonOf(const std::optional<long long>& number) { return number ? Json(*number) : Json(); }

Json JsonOf(const std::optional<LastReading>& last) {
  if (!last) return nullptr;
  return {{"begun", last->begun},
          {"ended", TextOrNull(last->ended)},
          {"result", TextOrNull(last->result)},
          {"reason", TextOrNull(last->reason)},
          {"difference", JsonOf(last->difference)}};
}

Json JsonOf(const std::optional<FailedReadings>& failed) {
  if (!failed) return nullptr;
  return {{"count", failed->count}, {"last", failed->last}, {"reason", TextOrNull(failed->reason)}};
}

}  // namespace

void AddReadings(const RecentReadings& readings, Json& json) {
  json["readings"] = readings.count;
  json["last"] = JsonOf(readings.last);
  json["difference"] = JsonOf(readings.difference);
  json["failed"] = JsonOf(readings.failed);
}

}  // namespace host
