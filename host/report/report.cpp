#include "host/report/report.h"

#include <map>
#include <nlohmann/json.hpp>

#include "host/checks/archive.h"
#include "host/checks/rules.h"
#include "host/report/finding_json.h"
#include "host/report/kept_values.h"
#include "host/report/packed_archive.h"
#include "host/report/page.h"
#include "host/report/parameters_json.h"
#include "host/report/readings_json.h"
#include "host/report/shown_dates.h"
#include "host/store/kept_rows.h"
#include "host/stream/cell.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;
using Sections = std::vector<StoredSection>;

std::string TextOf(const SYSTEMTIME& time) { return DateText(TavOf(time)); }

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
    const std::vector<ShownInstrument> shown = ShownInstruments();
    LookUp(shown);
    Json list = Json::array();
    for (const ShownInstrument& instrument : shown) {
      tell(list.size(), shown.size());
      list.push_back(Instrument(instrument));
    }
    return {{"lang", options_.language},
            {"made", TextOf(options_.made)},
            {"program", IRVELA_VERSION},
            {"store", database_.Name()},
            {"clockLimit", options_.checks.clockLimit.count()},
            {"statement", options_.statement.empty() ? Json() : Json(options_.statement)},
            {"instruments", std::move(list)}};
  }

 private:
  struct ShownInstrument {
    Sections sections;
    Selection dates;
  };

  bool IsStatement() const { return !options_.statement.empty(); }

  std::vector<ShownInstrument> ShownInstruments() {
    std::vector<ShownInstrument> shown;
    for (Sections& sections : ByInstrument(FindSections(database_, options_.selection))) {
      Selection dates = ShownDates(database_, sections, options_);
      shown.push_back({std::move(sections), std::move(dates)});
    }
    return shown;
  }

  // From the first of the dates that are shown.
  Selection Looked(const std::vector<ShownInstrument>& shown) const {
    Selection selection = options_.selection;
    for (const ShownInstrument& instrument : shown) {
      const auto& from = instrument.dates.from;
      if (!from) continue;
      const bool first = !selection.from || IsEarlier(TavOf(*from), TavOf(*selection.from));
      if (first) selection.from = from;
    }
    return selection;
  }

  void LookUp(const std::vector<ShownInstrument>& shown) {
    for (SectionCoverage& archive : FindCoverage(database_, options_.selection)) {
      known_.coverage[archive.section.id] = std::move(archive.coverage);
    }
    if (IsStatement()) return;
    known_.findings = Check(database_, Looked(shown), options_.checks);
    known_.snapshots = FindSnapshots(database_, options_.selection);
  }

  Json Instrument(const ShownInstrument& instrument) {
    const auto& [sections, dates] = instrument;
    const StoredSection& first = sections.front();
    Json json = {{"serial", first.of.serial},
                 {"model", first.of.model},
                 {"version", first.of.version},
                 {"place", first.of.place}};
    AddReadings(FindRecentReadings(database_, first), json);
    json["current"] = CurrentValues(database_, sections, IsStatement() ? dates : options_.selection,
                                    options_.units, IsStatement());
    AddKnown(first.instrument, dates, json);
    json["logs"] = Logs(database_, sections, dates, options_.units);
    json["archives"] = Archives(sections, dates);
    return json;
  }

  void AddKnown(long long instrument, const Selection& dates, Json& json) const {
    const auto snapshots = OfInstrument(known_.snapshots, instrument);
    json["parameters"] = JsonOf(NewestSnapshots(snapshots, options_.selection.to));
    json["changes"] = JsonOf(FindChanges(snapshots, dates.from, dates.to));
    json["findings"] = FindingsOf(OfInstrument(known_.findings, instrument), dates.from);
  }

  Json Archives(const Sections& sections, const Selection& dates) {
    Json archives = Json::array();
    for (const StoredSection& section : sections) {
      if (PeriodOf(section.kind) && !section.records.empty()) {
        archives.push_back(ArchiveJson(section, dates));
      }
    }
    return archives;
  }

  Json ArchiveJson(const StoredSection& section, const Selection& dates) {
    const Archive archive(section);
    const auto coverage = known_.coverage.find(section.id);
    Json json = {{"kind", KindName(section.kind)},
                 {"system", section.system},
                 {"endDated", archive.IntervalOf(0) < 0},
                 {"totals", archive.HoldsTotals()}};
    json["coverage"] =
        coverage == known_.coverage.end() ? Json() : JsonOf(Clipped(coverage->second, dates));
    PackedArchive packed(archive.Kind(), options_.units);
    TellKept(database_, {section}, dates, packed);
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
