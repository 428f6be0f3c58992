#include "host/report/finding_json.h"

#include <cmath>

#include "host/reading/periods.h"
#include "host/stream/cell.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

Json NumberOrNull(const Finding& finding, double FoundNumbers::*number) {
  if (!finding.numbers || !std::isfinite((*finding.numbers).*number)) return nullptr;
  return (*finding.numbers).*number;
}

Json JsonOf(const Finding& finding) {
  return {{"rule", finding.rule},
          {"note", finding.note},
          {"kind", finding.kind},
          {"system", finding.section.system},
          {"from", finding.from},
          {"to", finding.to},
          {"records", finding.records},
          {"field", finding.field},
          {"unit", finding.numbers ? finding.numbers->unit : ""},
          {"expected", NumberOrNull(finding, &FoundNumbers::expected)},
          {"found", NumberOrNull(finding, &FoundNumbers::found)},
          {"text", finding.sentence}};
}

}  // namespace

Json FindingsOf(const std::vector<Finding>& findings, const std::optional<SYSTEMTIME>& from) {
  const std::string begin = from ? DateText(TavOf(*from)) : "";
  Json list = Json::array();
  for (const Finding& finding : findings) {
    if (finding.to >= begin) list.push_back(JsonOf(finding));
  }
  return list;
}

}  // namespace host
