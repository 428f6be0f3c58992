#include "host/report/parameters_json.h"

#include "host/report/field_json.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

Json JsonOf(const Parameter& parameter) {
  return {{"field", parameter.field},
          {"caption", parameter.caption},
          {"value", TextOrNull(CellText(parameter.value))},
          {"unit", parameter.unit}};
}

Json JsonOf(const ParameterSnapshot& snapshot) {
  Json values = Json::array();
  for (const Parameter& parameter : snapshot.parameters) values.push_back(JsonOf(parameter));
  return {{"system", snapshot.section.system},
          {"time", TextOrNull(snapshot.noticed.clock)},
          {"noticed", snapshot.noticed.reading},
          {"values", std::move(values)}};
}

Json JsonOf(const ParameterChange& change) {
  return {{"system", change.section.system},
          {"noticed", change.noticed.reading},
          {"time", TextOrNull(change.noticed.clock)},
          {"before", change.before.reading},
          {"field", change.current.field},
          {"caption", change.current.caption},
          {"former", CellText(change.former.value)},
          {"formerUnit", change.former.unit},
          {"value", CellText(change.current.value)},
          {"unit", change.current.unit}};
}

template <class Item>
Json ListOf(const std::vector<Item>& items) {
  Json list = Json::array();
  for (const Item& item : items) list.push_back(JsonOf(item));
  return list;
}

}  // namespace

Json JsonOf(const std::vector<ParameterSnapshot>& snapshots) { return ListOf(snapshots); }
Json JsonOf(const std::vector<ParameterChange>& changes) { return ListOf(changes); }

}  // namespace host
