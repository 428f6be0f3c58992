#include "host/store/parameters.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>

#include "host/reading/periods.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

struct ColumnWords {
  std::string unit;
  std::string caption;
};
using FormatWords = std::map<std::string, ColumnWords>;  // by field

Cell CellOf(const Json& value) {
  if (value.is_number_unsigned()) return value.get<std::uint32_t>();
  if (value.is_number()) return value.get<double>();
  if (value.is_string()) return value.get<std::string>();
  return {};
}

FormatWords LoadFormat(Database& database, long long format) {
  FormatWords words;
  std::string field;
  ColumnWords row;
  soci::indicator known = soci::i_null;
  soci::statement select =
      (database.Session().prepare
           << "SELECT field, unit, caption FROM columns WHERE format = :format",
       soci::use(format), soci::into(field), soci::into(row.unit, known), soci::into(row.caption));
  for (select.execute(); select.fetch();) {
    if (known != soci::i_ok) row.unit.clear();
    words[field] = row;
  }
  return words;
}

class Loader {
 public:
  Loader(Database& database, std::vector<ParameterSnapshot>& snapshots)
      : database_(database), snapshots_(snapshots) {}

  void Load(const StoredSection& section) {
    // Formats are asked for once no other statement is under way.
    for (const Row& row : Rows(section)) {
      ParameterSnapshot snapshot{section, row.noticed, {}};
      Take(snapshot, Words(row.format), Json::parse(row.content));
      snapshots_.push_back(std::move(snapshot));
    }
  }

 private:
  struct Row {
    Noticed noticed;
    long long format = 0;
    std::string content;
  };

  std::vector<Row> Rows(const StoredSection& section) {
    std::vector<Row> rows;
    Row row;
    soci::statement select =
        (database_.Session().prepare
             << "SELECT r.begun, s.clock, s.format, s.content FROM snapshots s JOIN readings r "
                "ON r.id = s.reading WHERE s.section = :section ORDER BY r.begun, s.id",
         soci::use(section.id), soci::into(row.noticed.reading), soci::into(row.noticed.clock),
         soci::into(row.format), soci::into(row.content));
    for (select.execute(); select.fetch();) rows.push_back(row);
    return rows;
  }

  static void Take(ParameterSnapshot& snapshot, const FormatWords& words, const Json& content) {
    for (const auto& [field, value] : content.items()) {
      const auto known = words.find(field);
      const ColumnWords told = known == words.end() ? ColumnWords{} : known->second;
      snapshot.parameters.push_back({field, CellOf(value), told.unit, told.caption});
    }
  }

  const FormatWords& Words(long long format) {
    const auto found = formats_.find(format);
    if (found != formats_.end()) return found->second;
    return formats_[format] = LoadFormat(database_, format);
  }

  Database& database_;
  std::vector<ParameterSnapshot>& snapshots_;
  std::map<long long, FormatWords> formats_;
};

std::string TextOf(const SYSTEMTIME& time) { return DateText(TavOf(time)); }

// A clock that told no date is that of no time but "all".
bool IsWithin(const std::string& clock, const std::optional<SYSTEMTIME>& from,
              const std::optional<SYSTEMTIME>& to) {
  if (from && clock < TextOf(*from)) return false;
  return !to || (!clock.empty() && clock <= TextOf(*to));
}

bool IsKnown(const Parameter& parameter) {
  return !std::holds_alternative<std::monostate>(parameter.value);
}

void AddChanges(std::vector<ParameterChange>& changes, const ParameterSnapshot& before,
                const ParameterSnapshot& now) {
  for (const Parameter& current : now.parameters) {
    const auto former =
        std::find_if(before.parameters.begin(), before.parameters.end(),
                     [&](const Parameter& each) { return each.field == current.field; });
    if (former == before.parameters.end() || CellText(former->value) == CellText(current.value))
      continue;
    if (!IsKnown(*former) || !IsKnown(current)) continue;
    changes.push_back({now.section, now.noticed, before.noticed, *former, current});
  }
}

}  // namespace

std::vector<ParameterSnapshot> FindSnapshots(Database& database, const Selection& selection) {
  Selection parameters = selection;
  parameters.groups.assign(1, static_cast<char>(tav::ReadGroup::kDatabase));
  std::vector<ParameterSnapshot> snapshots;
  Loader loader(database, snapshots);
  for (const StoredSection& section : FindSections(database, parameters)) loader.Load(section);
  return snapshots;
}

std::vector<ParameterSnapshot> NewestSnapshots(const std::vector<ParameterSnapshot>& snapshots,
                                               const std::optional<SYSTEMTIME>& at) {
  std::vector<ParameterSnapshot> newest;
  for (const ParameterSnapshot& snapshot : snapshots) {
    if (!IsWithin(snapshot.noticed.clock, {}, at)) continue;
    const bool same = !newest.empty() && newest.back().section.id == snapshot.section.id;
    if (same) newest.pop_back();
    newest.push_back(snapshot);
  }
  return newest;
}

std::vector<ParameterChange> FindChanges(const std::vector<ParameterSnapshot>& snapshots,
                                         const std::optional<SYSTEMTIME>& from,
                                         const std::optional<SYSTEMTIME>& to) {
  std::vector<ParameterChange> changes;
  for (std::size_t i = 1; i < snapshots.size(); ++i) {
    if (snapshots[i - 1].section.id != snapshots[i].section.id) continue;
    if (!IsWithin(snapshots[i].noticed.clock, from, to)) continue;
    AddChanges(changes, snapshots[i - 1], snapshots[i]);
  }
  return changes;
}

}  // namespace host
