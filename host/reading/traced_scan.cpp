#include "host/reading/traced_scan.h"

#include <nlohmann/json.hpp>

#include "host/reading/settings_json.h"

namespace host {
namespace {

using Json = nlohmann::json;

constexpr const char* kScan = "scan";

std::string Dump(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

std::string ToJson(const TracedScan& scan) {
  Json ways = Json::array();
  for (const Way& way : scan.plan.ways) {
    ways.push_back({{"kind", KindName(way.kind)}, {"speed", way.baud}});
  }
  return Dump({{kScan, {{"numbers", scan.plan.numbers}, {"ways", ways}}},
               {"line", scan.line},
               {"begun", DateText(scan.begun)}});
}

std::string ScanEndJson(int exitCode) { return Dump({{"exit", exitCode}}); }

bool IsOfScan(const std::string& head) { return Json::parse(head).contains(kScan); }

}  // namespace host
