#include "host/checks/rules.h"

#include <algorithm>

#include "host/system/files.h"

namespace host {
namespace {

using tav::TitleKind;

constexpr Rule kRules[] = {
    {"hours-days", "The hours of a day add up to the day.", TitleKind::kHourly, TitleKind::kDaily,
     CheckSums},
    {"days-months", "The days of a month add up to the month.", TitleKind::kDaily,
     TitleKind::kMonthly, CheckSums},
    {"hours-months", "The hours of a month whose days are not all kept add up to the month.",
     TitleKind::kHourly, TitleKind::kMonthly, CheckSums},
    {"totals", "Totals do not run backwards from one reading, or end of a day, to the next.",
     TitleKind::kCurrent, TitleKind::kDaily, CheckTotals},
    {"clock",
     "The instrument's clock is right, so that the times of its records are.",
     {},
     {},
     CheckClock},
    {"clock-changed",
     "Nobody set the instrument's clock between two readings.",
     {},
     {},
     CheckClockChange},
    {"ahead", "No record is of a time after it was read.", {}, {}, CheckAhead},
    {"situations", "Situations do not last long.", TitleKind::kHourly, TitleKind::kHourly,
     CheckSituations},
    {"working-time", "The instrument works all the time.", TitleKind::kDaily, TitleKind::kHourly,
     CheckWorkingTime},
    {"replaced",
     "A note: another instrument stood at the same place before.",
     {},
     {},
     CheckReplacement},
};

bool IsMeant(const std::vector<std::string>& names, const Rule& rule) {
  return names.empty() || std::find(names.begin(), names.end(), rule.name) != names.end();
}

void RequireRules(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    const bool known = std::any_of(std::begin(kRules), std::end(kRules),
                                   [&](const Rule& rule) { return name == rule.name; });
    if (known) continue;
    throw UsageError("there is no rule " + name + "; irvela check --rules lists them");
  }
}

}  // namespace

std::span<const Rule> AllRules() { return kRules; }

std::vector<std::string> RuleNames() {
  std::vector<std::string> names;
  for (const Rule& rule : kRules) names.emplace_back(rule.name);
  return names;
}

std::vector<Finding> Check(Database& database, const Selection& selection,
                           const CheckOptions& options, const std::vector<std::string>& names) {
  RequireRules(names);
  const KeptReadings readings(database);
  std::vector<Finding> findings;
  for (auto& sections : ByInstrument(FindSections(database, selection))) {
    const Subject subject{database, selection, options, readings, std::move(sections)};
    for (const Rule& rule : kRules) {
      if (IsMeant(names, rule)) rule.check(subject, rule, findings);
    }
  }
  return findings;
}

}  // namespace host
