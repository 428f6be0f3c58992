// Hours against days, days and hours against months.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "host/checks/archive.h"
#include "host/checks/rules.h"
#include "host/checks/sums.h"
#include "host/checks/wording.h"

namespace host {
namespace {

struct Whole {
  PeriodNumber interval = 0;
  long long format = 0;
  std::vector<double> values;
};

// An archive and another one that it is to add up to.
struct Pair {
  const Archive& parts;
  const Archive& wholes;
  std::vector<std::string> fields;
};

// Records in a row that a field does not add up in, told by the one that is off most.
struct Fault {
  PeriodNumber first = 0;
  PeriodNumber last = 0;
  PeriodNumber worst = 0;
  std::size_t records = 0;
  std::size_t parts = 0;
  double sum = 0;
  double expected = 0;
  std::string unit;
};

class SumCheck {
 public:
  SumCheck(const Subject& subject, const Rule& rule, const Pair& pair,
           std::vector<Finding>& findings)
      : subject_(subject),
        rule_(rule),
        pair_(pair),
        findings_(findings),
        units_(subject.database, pair.fields),
        faults_(pair.fields.size()) {
    units_.Load(pair.parts.Section());
    units_.Load(pair.wholes.Section());
  }

  void Run(const std::vector<Whole>& wholes) {
    if (wholes.empty()) return;
    const IntervalRange range{RangeOf(wholes.front()).first, RangeOf(wholes.back()).last};
    ArchiveScan scan(subject_.database, pair_.parts, pair_.fields, range);
    bool more = scan.Next();
    for (const Whole& whole : wholes) {
      const auto [first, last] = RangeOf(whole);
      Sums sums(pair_.fields.size());
      while (more && scan.Interval() < first) more = scan.Next();
      for (; more && scan.Interval() <= last; more = scan.Next()) {
        sums.Add(scan.Values(), units_.Of(scan.Format()));
      }
      if (sums.Records() == static_cast<std::size_t>(last - first + 1)) Judge(whole, sums);
    }
    for (std::size_t i = 0; i < faults_.size(); ++i) Tell(i);
  }

 private:
  IntervalRange RangeOf(const Whole& whole) const {
    return PartsOf(pair_.wholes.Kind(), whole.interval, pair_.parts.Kind());
  }

  void Judge(const Whole& whole, const Sums& sums) {
    const UnitTexts& units = units_.Of(whole.format);
    for (std::size_t i = 0; i < pair_.fields.size(); ++i) {
      const double sum = sums.Of(i, units);
      if (sum == 0 && pair_.parts.HasZerosForNoValue()) continue;
      if (AddsUp(sum, whole.values[i], sums.Records(), subject_.options.tolerance)) continue;
      const Fault fault{whole.interval,  whole.interval, whole.interval, 1, sums.Records(), sum,
                        whole.values[i], units[i]};
      Join(i, fault);
    }
  }

  void Join(std::size_t field, const Fault& next) {
    Fault& fault = faults_[field];
    const bool follows = fault.records > 0 && next.first == fault.last + 1;
    if (!follows || fault.unit != next.unit) Tell(field);
    const Fault before = fault;
    const bool worse = std::abs(next.sum - next.expected) > std::abs(before.sum - before.expected);
    fault = worse || before.records == 0 ? next : before;
    fault.first = before.records == 0 ? next.first : before.first;
    fault.last = next.last;
    fault.records = before.records + 1;
  }

  void Tell(std::size_t field) {
    const Fault fault = std::exchange(faults_[field], Fault{});
    if (fault.records == 0) return;
    Finding finding = MakeFinding(rule_, pair_.wholes.Section());
    finding.from = pair_.wholes.DateOf(fault.first);
    finding.to = pair_.wholes.DateOf(fault.last);
    finding.records = fault.records;
    finding.field = pair_.fields[field];
    finding.numbers = {fault.expected, fault.sum, fault.unit};
    finding.sentence = fmt::format(
        "{}{}: {} {} add up to {}, the {} says {} ({})", OfSeveral(fault), finding.field,
        fault.parts, KindName(rule_.kind), NumberText(fault.sum, fault.unit), WordOf(rule_.whole),
        NumberText(fault.expected, fault.unit), DifferenceText(fault.sum, fault.expected));
    findings_.push_back(std::move(finding));
  }

  std::string OfSeveral(const Fault& fault) const {
    if (fault.records == 1) return {};
    return fmt::format("{} {} in a row, most at {}, ", fault.records, KindName(rule_.whole),
                       ShortDate(rule_.whole, pair_.wholes.DateOf(fault.worst)));
  }

  const Subject& subject_;
  const Rule& rule_;
  const Pair& pair_;
  std::vector<Finding>& findings_;
  FormatUnits units_;
  std::vector<Fault> faults_;  // of each field
};

std::vector<std::string> CommonFields(const Archive& one, const Archive& other) {
  const std::vector<std::string> others = other.FieldsOf(Amounts(), Span::kInterval);
  std::vector<std::string> fields;
  for (const std::string& field : one.FieldsOf(Amounts(), Span::kInterval)) {
    if (std::find(others.begin(), others.end(), field) != others.end()) fields.push_back(field);
  }
  return fields;
}

std::vector<Whole> LoadWholes(const Subject& subject, const Pair& pair) {
  std::vector<Whole> wholes;
  ArchiveScan scan(subject.database, pair.wholes, pair.fields,
                   pair.wholes.Within(subject.selection));
  while (scan.Next()) wholes.push_back({scan.Interval(), scan.Format(), scan.Values()});
  return wholes;
}

// Months whose days are all kept are compared with the days.
void LeaveOutComparedMonths(const Subject& subject, const Archive& hours,
                            std::vector<Whole>& months) {
  const std::vector<Archive> archives = FindArchives(subject.sections, tav::TitleKind::kDaily);
  const Archive* days = FindPeer(archives, hours);
  if (days == nullptr || months.empty()) return;
  std::vector<PeriodNumber> kept;
  const auto range = [](const Whole& month) {
    return PartsOf(Period::kMonth, month.interval, Period::kDay);
  };
  ArchiveScan scan(subject.database, *days, {},
                   {range(months.front()).first, range(months.back()).last});
  while (scan.Next()) kept.push_back(scan.Interval());
  std::erase_if(months, [&](const Whole& month) {
    const auto [first, last] = range(month);
    return std::upper_bound(kept.begin(), kept.end(), last) -
               std::lower_bound(kept.begin(), kept.end(), first) ==
           last - first + 1;
  });
}

}  // namespace

void CheckSums(const Subject& subject, const Rule& rule, std::vector<Finding>& findings) {
  const std::vector<Archive> wholes = FindArchives(subject.sections, rule.whole);
  for (const Archive& parts : FindArchives(subject.sections, rule.kind)) {
    const Archive* whole = FindPeer(wholes, parts);
    if (whole == nullptr) continue;
    const Pair pair{parts, *whole, CommonFields(parts, *whole)};
    if (pair.fields.empty()) continue;
    std::vector<Whole> records = LoadWholes(subject, pair);
    const bool hoursOfMonths = parts.Kind() == Period::kHour && whole->Kind() == Period::kMonth;
    if (hoursOfMonths) LeaveOutComparedMonths(subject, parts, records);
    SumCheck(subject, rule, pair, findings).Run(records);
  }
}

}  // namespace host
