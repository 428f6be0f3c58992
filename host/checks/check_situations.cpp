// Situations that lasted, and working time that is lacking.
#include <fmt/format.h>

#include <algorithm>
#include <functional>

#include "host/checks/archive.h"
#include "host/checks/rules.h"
#include "host/checks/wording.h"

namespace host {
namespace {

constexpr double kHoursOfDay = 24;
// A few minutes in a day, as each situation costs, do not join others to one long lack.
constexpr double kNearlyAll = 0.95;

double HoursOf(Period period) { return period == Period::kDay ? kHoursOfDay : 1; }

// Records that follow each other.
struct Stretch {
  PeriodNumber first = 0;
  PeriodNumber last = 0;
  std::size_t records = 0;
  double sum = 0;
  std::vector<long long> codes;  // the first few different ones
};

constexpr std::size_t kMostCodes = 4;

void Lengthen(Stretch& stretch, PeriodNumber interval, double value) {
  if (stretch.records == 0) stretch.first = interval;
  stretch.last = interval;
  stretch.sum += value;
  ++stretch.records;
  const auto code = static_cast<long long>(value);
  const bool isNew =
      std::find(stretch.codes.begin(), stretch.codes.end(), code) == stretch.codes.end();
  if (isNew && stretch.codes.size() < kMostCodes) stretch.codes.push_back(code);
}

using TakeStretch = std::function<void(const Stretch&)>;

// Stretches of the records that fulfil a condition on their one field.
void FindStretches(const Subject& subject, const Archive& archive, const std::string& field,
                   const std::string& where, const TakeStretch& take) {
  Stretch stretch;
  ArchiveScan scan(subject.database, archive, {field}, archive.Within(subject.selection), where);
  while (scan.Next()) {
    if (stretch.records > 0 && scan.Interval() != stretch.last + 1) {
      take(std::exchange(stretch, {}));
    }
    Lengthen(stretch, scan.Interval(), scan.Values().front());
  }
  if (stretch.records > 0) take(stretch);
}

Finding MakeFinding(const Rule& rule, const Archive& archive, const Stretch& stretch,
                    const std::string& field) {
  Finding finding = MakeFinding(rule, archive.Section());
  finding.from = archive.DateOf(stretch.first);
  finding.to = archive.DateOf(stretch.last);
  finding.records = stretch.records;
  finding.field = field;
  return finding;
}

std::string CodesText(const Stretch& stretch) {
  std::string text(stretch.codes.size() > 1 ? "codes " : "code ");
  for (std::size_t i = 0; i < stretch.codes.size(); ++i) {
    text += fmt::format("{}{}", i > 0 ? ", " : "", stretch.codes[i]);
  }
  return stretch.codes.size() == kMostCodes ? text + " and perhaps others" : text;
}

// The archives of the first kind, and of the second where a part of the instrument has none of the
// first.
std::vector<Archive> ArchivesOf(const Subject& subject, const Rule& rule) {
  std::vector<Archive> archives = FindArchives(subject.sections, rule.kind);
  std::erase_if(archives, [](const Archive& archive) { return archive.HoldsTotals(); });
  for (const Archive& other : FindArchives(subject.sections, rule.whole)) {
    if (FindPeer(archives, other) == nullptr) archives.push_back(other);
  }
  return archives;
}

}  // namespace

void CheckSituations(const Subject& subject, const Rule& rule, std::vector<Finding>& findings) {
  for (const Archive& archive : ArchivesOf(subject, rule)) {
    for (const std::string& field : archive.FieldsOf({Quantity::kSituationCode}, Span::kNone)) {
      FindStretches(subject, archive, field, field + " <> 0", [&](const Stretch& stretch) {
        const auto hours = static_cast<double>(stretch.records);
        const auto most = static_cast<double>(subject.options.situationHours);
        if (hours < most) return;
        Finding finding = MakeFinding(rule, archive, stretch, field);
        finding.numbers = {most, hours, "h"};
        finding.sentence = fmt::format("a situation in {} {} in a row, {}", stretch.records,
                                       KindName(archive.Section().kind), CodesText(stretch));
        findings.push_back(std::move(finding));
      });
    }
  }
}

void CheckWorkingTime(const Subject& subject, const Rule& rule, std::vector<Finding>& findings) {
  for (const Archive& archive : ArchivesOf(subject, rule)) {
    const double length = HoursOf(archive.Kind());
    for (const std::string& field : archive.FieldsOf({Quantity::kWorkingTime}, Span::kInterval)) {
      const std::string less = fmt::format("{} < {}", field, length * kNearlyAll);
      FindStretches(subject, archive, field, less, [&](const Stretch& stretch) {
        const double whole = length * static_cast<double>(stretch.records);
        if (whole - stretch.sum < static_cast<double>(subject.options.situationHours)) return;
        Finding finding = MakeFinding(rule, archive, stretch, field);
        finding.numbers = {whole, stretch.sum, "h"};
        finding.sentence =
            fmt::format("it worked {} of {}", NumberText(stretch.sum, ""), NumberText(whole, "h"));
        findings.push_back(std::move(finding));
      });
    }
  }
}

}  // namespace host
