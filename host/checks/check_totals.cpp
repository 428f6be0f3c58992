// Totals that run backwards: in kept current values, and in archives of totals.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <nlohmann/json.hpp>

#include "host/checks/archive.h"
#include "host/checks/rules.h"
#include "host/checks/wording.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view kTotalEnd = "_total";

bool IsTotalAmount(std::string_view field) {
  if (!field.ends_with(kTotalEnd)) return false;
  field.remove_suffix(kTotalEnd.size());
  const std::vector<Quantity> amounts = Amounts();
  return std::find(amounts.begin(), amounts.end(), FindName(field).quantity) != amounts.end();
}

struct Total {
  double value = 0;
  std::string unit;
  std::string time;
};

// Takes the totals of a section one after the other.
class TotalCheck {
 public:
  TotalCheck(const Subject& subject, const Rule& rule, const StoredSection& section,
             std::vector<Finding>& findings)
      : subject_(subject), rule_(rule), section_(section), findings_(findings) {}

  void Take(const std::string& field, const Total& total) {
    if (!std::isfinite(total.value)) return;
    const auto [place, first] = before_.try_emplace(field, total);
    if (first) return;
    const Total before = std::exchange(place->second, total);
    // What is rounded to single precision on the way is no step back.
    const double rounding = std::abs(before.value) * 1e-6;
    if (before.unit == total.unit && total.value < before.value - rounding &&
        IsMeant(subject_.selection, total.time, total.time)) {
      Tell(field, before, total);
    }
  }

 private:
  void Tell(const std::string& field, const Total& before, const Total& total) {
    Finding finding = MakeFinding(rule_, section_);
    finding.from = before.time;
    finding.to = total.time;
    finding.records = 2;
    finding.field = field;
    finding.numbers = {before.value, total.value, total.unit};
    finding.sentence =
        fmt::format("{} ran backwards from {} to {}", field, NumberText(before.value, before.unit),
                    NumberText(total.value, total.unit));
    findings_.push_back(std::move(finding));
  }

  const Subject& subject_;
  const Rule& rule_;
  const StoredSection& section_;
  std::vector<Finding>& findings_;
  std::map<std::string, Total> before_;  // by field
};

struct Snapshot {
  long long format = 0;
  std::string clock;
  std::string content;
};

// In the order in which they were read: the instrument's clock may have been set back.
std::vector<Snapshot> LoadSnapshots(Database& database, const StoredSection& section) {
  std::vector<Snapshot> snapshots;
  Snapshot row;
  soci::statement select =
      (database.Session().prepare
           << "SELECT s.format, s.clock, s.content FROM snapshots s JOIN readings r "
              "ON r.id = s.reading WHERE s.section = :section ORDER BY r.begun, s.id",
       soci::use(section.id), soci::into(row.format), soci::into(row.clock),
       soci::into(row.content));
  for (select.execute(); select.fetch();) snapshots.push_back(row);
  return snapshots;
}

std::vector<std::string> TotalsIn(const std::vector<Snapshot>& snapshots) {
  std::vector<std::string> fields;
  if (snapshots.empty()) return fields;
  const Json content = Json::parse(snapshots.back().content);
  for (const auto& [field, value] : content.items()) {
    if (IsTotalAmount(field)) fields.push_back(field);
  }
  return fields;
}

void CheckSnapshots(const Subject& subject, const Rule& rule, const StoredSection& section,
                    std::vector<Finding>& findings) {
  const std::vector<Snapshot> snapshots = LoadSnapshots(subject.database, section);
  const std::vector<std::string> fields = TotalsIn(snapshots);
  if (fields.empty()) return;
  FormatUnits formats(subject.database, fields);
  formats.Load(section);
  TotalCheck check(subject, rule, section, findings);
  for (const Snapshot& snapshot : snapshots) {
    const Json content = Json::parse(snapshot.content);
    const std::vector<std::string>& units = formats.Of(snapshot.format);
    for (std::size_t i = 0; i < fields.size() && i < units.size(); ++i) {
      const auto value = content.find(fields[i]);
      if (value == content.end() || !value->is_number()) continue;
      check.Take(fields[i], {value->get<double>(), units[i], snapshot.clock});
    }
  }
}

void CheckArchive(const Subject& subject, const Rule& rule, const Archive& archive,
                  std::vector<Finding>& findings) {
  const std::vector<std::string> fields = archive.FieldsOf(Amounts(), Span::kTotal);
  if (fields.empty()) return;
  FormatUnits formats(subject.database, fields);
  formats.Load(archive.Section());
  TotalCheck check(subject, rule, archive.Section(), findings);
  ArchiveScan scan(subject.database, archive, fields, archive.Within(subject.selection));
  while (scan.Next()) {
    const std::vector<std::string>& units = formats.Of(scan.Format());
    for (std::size_t i = 0; i < fields.size() && i < units.size(); ++i) {
      check.Take(fields[i], {scan.Values()[i], units[i], archive.DateOf(scan.Interval())});
    }
  }
}

}  // namespace

void CheckTotals(const Subject& subject, const Rule& rule, std::vector<Finding>& findings) {
  for (const StoredSection& section : subject.sections) {
    if (section.kind == rule.kind) CheckSnapshots(subject, rule, section, findings);
  }
  for (const Archive& archive : FindArchives(subject.sections, rule.whole)) {
    CheckArchive(subject, rule, archive, findings);
  }
}

}  // namespace host
