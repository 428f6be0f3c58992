#include "host/checks/wording.h"

#include <fmt/format.h>

#include "host/reading/periods.h"
#include "host/stream/cell.h"

namespace host {

Finding MakeFinding(const Rule& rule, const StoredSection& section) {
  Finding finding;
  finding.section = section;
  finding.kind = KindName(section.kind);
  finding.rule = rule.name;
  return finding;
}

Finding MakeFinding(const Rule& rule, const Subject& subject) {
  Finding finding;
  finding.section.instrument = subject.sections.front().instrument;
  finding.section.of = subject.Who();
  finding.rule = rule.name;
  return finding;
}

bool IsMeant(const Selection& selection, const std::string& from, const std::string& to) {
  if (selection.from && to < DateText(TavOf(*selection.from))) return false;
  return !selection.to || from <= DateText(TavOf(*selection.to));
}

const char* WordOf(tav::TitleKind kind) {
  switch (PeriodOf(kind).value_or(Period::kHour)) {
    case Period::kDay:
      return "day";
    case Period::kMonth:
      return "month";
    case Period::kHour:
      break;
  }
  return "hour";
}

std::string NumberText(double value, const std::string& unit) {
  std::string text = fmt::format("{:.7g}", value);
  if (!unit.empty()) text.append(1, ' ').append(unit);
  return text;
}

std::string DifferenceText(double found, double expected) {
  const double difference = found - expected;
  if (expected == 0) return fmt::format("{:+.4g}", difference);
  return fmt::format("{:+.3g} %", difference / expected * 100);
}

std::string ShortDate(tav::TitleKind kind, const std::string& date) {
  constexpr std::size_t kToMinutes = 16;
  constexpr std::size_t kDay = 10;
  constexpr std::size_t kMonth = 7;
  const auto period = PeriodOf(kind);
  if (!period) return date;
  if (*period == Period::kHour) return date.substr(0, kToMinutes);
  return date.substr(0, *period == Period::kDay ? kDay : kMonth);
}

}  // namespace host
