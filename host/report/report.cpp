#include "host/report/report.h"

#include <map>
#include <nlohmann/json.hpp>

#include "host/checks/archive.h"
#include "host/checks/rules.h"
#include "host/report/finding_json.h"
#include "host/report/kept_values.h"
#include "host/report/last_reading.h"
#include "host/report/packed_archive.h"
#include "host/report/page.h"
#include "host/report/parameters_json.h"
#include "host/report/shown_dates.h"
#include "host/store/kept_rows.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;
using Sections = std::vector<StoredSection>;

Json JsonOf(const Coverage& coverage) {
  Json ranges = Json::array();
  for (const CoverageRange& range : coverage.ranges) {
    ranges.push_back({static_cast<int>(range.state), SizeOf(range.periods)});
  }
  return {{"first", coverage.bounds.first},
          {"last", coverage.bounds.last},
          {"ranges", std::move(ranges)}};
}

// What is looked up once for all instruments.
struct Known {
  std::map<long long, Coverage> coverage;  // by section
  std::vector<Finding> findings;
  std::vector<ParameterSnapshot> snapshots;
};

template <class Item>
std::vector<Item> OfInstrument(const std::vector<Item>& items, long long instrument) {
  std::vector<Item> found;
  for (const Item& item : items) {
    if (item.section.instrument == instrument) found.push_back(item);
  }
  return found;
}

class ReportMaker {
 public:
  ReportMaker(Database& database, const ReportOptions& options)
      : database_(database), options_(options) {}

  Json Make(const ReportProgress& tell) {
    const auto instruments = ByInstrument(FindSections(database_, options_.selection));
    LookUp();
    Json list = Json::array();
    for (const Sections& sections : instruments) {
      tell(list.size(), instruments.size());
      list.push_back(Instrument(sections));
    }
    return {{"lang", options_.language},
            {"made", DateText(TavOf(options_.made))},
            {"program", IRVELA_VERSION},
            {"store", database_.Name()},
            {"clockLimit", options_.checks.clockLimit.count()},
            {"statement", options_.statement.empty() ? Json() : Json(options_.statement)},
            {"instruments", std::move(list)}};
  }

 private:
  bool IsStatement() const { return !options_.statement.empty(); }

  void LookUp() {
    for (SectionCoverage& archive : FindCoverage(database_, options_.selection)) {
      known_.coverage[archive.section.id] = std::move(archive.coverage);
    }
    if (IsStatement()) return;
    known_.findings = Check(database_, options_.selection, options_.checks);
    known_.snapshots = FindSnapshots(database_, options_.selection);
  }

  Json Instrument(const Sections& sections) {
    const StoredSection& first = sections.front();
    const Selection shown = ShownDates(database_, sections, options_);
    Json json = {{"serial", first.of.serial},
                 {"model", first.of.model},
                 {"version", first.of.version},
                 {"place", first.of.place}};
    AddReadings(database_, first, json);
    json["current"] = CurrentValues(database_, sections, IsStatement() ? shown : options_.selection,
                                    options_.units, IsStatement());
    AddKnown(first.instrument, shown, json);
    json["logs"] = Logs(database_, sections, shown, options_.units);
    json["archives"] = Archives(sections, shown);
    return json;
  }

  void AddKnown(long long instrument, const Selection& shown, Json& json) const {
    const auto snapshots = OfInstrument(known_.snapshots, instrument);
    json["parameters"] = JsonOf(NewestSnapshots(snapshots, options_.selection.to));
    json["changes"] = JsonOf(FindChanges(snapshots, shown.from, shown.to));
    json["findings"] = FindingsOf(known_.findings, instrument);
  }

  Json Archives(const Sections& sections, const Selection& shown) {
    Json archives = Json::array();
    for (const StoredSection& section : sections) {
      if (PeriodOf(section.kind) && !section.records.empty()) {
        archives.push_back(ArchiveJson(section, shown));
      }
    }
    return archives;
  }

  Json ArchiveJson(const StoredSection& section, const Selection& shown) {
    const Archive archive(section);
    const auto coverage = known_.coverage.find(section.id);
    Json json = {{"kind", KindName(section.kind)},
                 {"system", section.system},
                 {"endDated", archive.IntervalOf(0) < 0},
                 {"totals", archive.HoldsTotals()}};
    json["coverage"] =
        coverage == known_.coverage.end() ? Json() : JsonOf(Clipped(coverage->second, shown));
    PackedArchive packed(archive.Kind(), options_.units);
    TellKept(database_, {section}, shown, packed);
    packed.AddTo(json);
    return json;
  }

  Database& database_;
  const ReportOptions& options_;
  Known known_;
};

}  // namespace

Report MakeReport(Database& database, const ReportOptions& options, const ReportProgress& tell) {
  const Json data = ReportMaker(database, options).Make(tell);
  return {PageWith(data, options.language), data["instruments"].size()};
}

}  // namespace host
