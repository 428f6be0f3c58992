#include "host/reading/model_plan.h"

#include <algorithm>

namespace host {
namespace {

using tav::Mode;
using tav::ReadGroup;
using tav::TitleKind;

struct Step {
  TitleKind kind;
  const char* suffix;  // behind the name of the part
  ReadGroup group;
};

constexpr Step kOlderSteps[] = {
    {TitleKind::kDatabase, "", ReadGroup::kDatabase},
    {TitleKind::kCurrent, "", ReadGroup::kCurrent},
    {TitleKind::kMonthly, "", ReadGroup::kMonths},
    {TitleKind::kDaily, "", ReadGroup::kDays},
    {TitleKind::kHourly, "", ReadGroup::kHours},
    {TitleKind::kLog, " ИЗМ", ReadGroup::kLogs},
    {TitleKind::kLog, " НС", ReadGroup::kLogs},
};
constexpr auto kStepsWithoutLogs = std::span(kOlderSteps).first(5);

// The control archive comes with the days, the logs with the database.
constexpr Step kK7Steps[] = {
    {TitleKind::kCurrent, "", ReadGroup::kCurrent},
    {TitleKind::kCurrent, " Тотальный", ReadGroup::kCurrent},
    {TitleKind::kMonthly, "", ReadGroup::kMonths},
    {TitleKind::kDaily, "", ReadGroup::kDays},
    {TitleKind::kDaily, " Контрольный", ReadGroup::kDays},
    {TitleKind::kHourly, "", ReadGroup::kHours},
    {TitleKind::kDatabase, "", ReadGroup::kDatabase},
    {TitleKind::kLog, " Изменения", ReadGroup::kDatabase},
    {TitleKind::kLog, " События", ReadGroup::kDatabase},
};

// common: the part whose database comes first; empty: there is none.
ModelPlan Plan(std::string_view greeting, Mode kind, const char* common,
               std::vector<std::string> parts, std::span<const Step> steps) {
  ModelPlan plan{greeting, kind, {}, std::move(parts)};
  if (*common != '\0') {
    plan.sections.push_back({TitleKind::kDatabase, common, ReadGroup::kDatabase, common});
  }
  for (const std::string& part : plan.parts) {
    for (const Step& step : steps) {
      plan.sections.push_back({step.kind, part + step.suffix, step.group, part});
    }
  }
  return plan;
}

const std::vector<ModelPlan>& Plans() {
  static const std::vector<ModelPlan> plans = {
      Plan("521", Mode::kOlder, "", {"ОВ"}, kStepsWithoutLogs),
      Plan("522-0", Mode::kOlder, "ОВ", {"ТВ1", "ТВ2"}, kStepsWithoutLogs),
      Plan("523-0", Mode::kOlder, "ОВ", {"ТВ1", "ТВ2"}, kOlderSteps),
      Plan("521-1x", Mode::kOlder, "", {"ОВ"}, kOlderSteps),
      Plan("721", Mode::kOlder, "", {"ОВ"}, kOlderSteps),
      Plan("УРМ521", Mode::kK7, "", {"ОБЩ"}, kK7Steps),
      Plan("УРМ523", Mode::kK7, "ОБЩ", {"ТВ1", "ТВ2"}, kK7Steps),
  };
  return plans;
}

}  // namespace

// Models of the older protocol share the name under "Tip"; under "Th" each has its own.
const ModelPlan* FindPlan(Mode kind, const Message& message) {
  if (message.subject != (kind == Mode::kK7 ? "Tip" : "Th")) return nullptr;
  const auto plan = std::find_if(Plans().begin(), Plans().end(), [&](const ModelPlan& known) {
    return known.kind == kind && known.greeting == message.detail;
  });
  return plan == Plans().end() ? nullptr : &*plan;
}

}  // namespace host
