#include "host/store/coverage.h"

#include <algorithm>
#include <limits>
#include <set>

#include "host/store/open_store.h"
#include "host/system/clock.h"

namespace host {
namespace {

// Holds nothing, and unites with anything.
constexpr PeriodRange kNone{std::numeric_limits<PeriodNumber>::max(),
                            std::numeric_limits<PeriodNumber>::min()};

PeriodRange Union(const PeriodRange& left, const PeriodRange& right) {
  return {std::min(left.first, right.first), std::max(left.last, right.last)};
}

void Append(std::vector<CoverageRange>& ranges, RecordState state, const PeriodRange& periods,
            const std::string& learnt = {}) {
  const bool same = !ranges.empty() && ranges.back().state == state &&
                    ranges.back().periods.last + 1 == periods.first &&
                    ranges.back().learnt == learnt;
  if (!same) ranges.push_back({state, periods, learnt});
  ranges.back().periods.last = periods.last;
}

// Bounds as the database library takes them.
struct Keys {
  explicit Keys(const PeriodRange& range) : first(range.first), last(range.last) {}
  long long first;
  long long last;
};

// Fetching in the order of the key is faster than having the database look for the ranges.
std::vector<CoverageRange> KeptOf(Database& database, const StoredSection& section,
                                  const PeriodRange& bounds) {
  std::vector<CoverageRange> ranges;
  if (section.records.empty()) return ranges;
  const Keys keys(bounds);
  long long period = 0;
  soci::statement select =
      (database.Session().prepare << "SELECT period FROM " << section.records
                                  << " WHERE section = :section AND period >= :first "
                                     "AND period <= :last ORDER BY period",
       soci::use(section.id), soci::use(keys.first), soci::use(keys.last), soci::into(period));
  for (select.execute(); select.fetch();) {
    Append(ranges, RecordState::kKept, {period, period});
  }
  return ranges;
}

std::vector<CoverageRange> AbsencesOf(Database& database, const StoredSection& section,
                                      const PeriodRange& bounds) {
  std::vector<CoverageRange> ranges;
  const Keys keys(bounds);
  long long period = 0;
  std::string state;
  std::string learnt;
  soci::statement select =
      (database.Session().prepare
           << "SELECT a.period, a.state, r.begun FROM absences a JOIN readings r ON "
              "r.id = a.reading WHERE a.section = :section AND a.period >= :first "
              "AND a.period <= :last ORDER BY a.period",
       soci::use(section.id), soci::use(keys.first), soci::use(keys.last), soci::into(period),
       soci::into(state), soci::into(learnt));
  for (select.execute(); select.fetch();) {
    const bool absent = state == "absent";
    Append(ranges, absent ? RecordState::kAbsent : RecordState::kMissing, {period, period},
           absent ? learnt : "");
  }
  return ranges;
}

// Goes through ranges that stand in order.
class Walk {
 public:
  explicit Walk(const std::vector<CoverageRange>& ranges) : ranges_(ranges) {}

  // The range that a period lies in; null: none.
  const CoverageRange* At(PeriodNumber period) {
    while (at_ < ranges_.size() && ranges_[at_].periods.last < period) ++at_;
    return Begin() <= period ? &ranges_[at_] : nullptr;
  }
  // Of the range that comes next.
  PeriodNumber Begin() const {
    return at_ < ranges_.size() ? ranges_[at_].periods.first : kNone.first;
  }

 private:
  const std::vector<CoverageRange>& ranges_;
  std::size_t at_ = 0;
};

// What is kept is neither missing nor absent.
std::vector<CoverageRange> Merge(const std::vector<CoverageRange>& kept,
                                 const std::vector<CoverageRange>& absences,
                                 const PeriodRange& bounds) {
  std::vector<CoverageRange> merged;
  Walk records(kept);
  Walk others(absences);
  for (PeriodNumber next = bounds.first; next <= bounds.last;) {
    const CoverageRange* range = records.At(next);
    PeriodNumber last = range != nullptr ? range->periods.last : records.Begin() - 1;
    if (range == nullptr) {
      range = others.At(next);
      last = std::min(last, range != nullptr ? range->periods.last : others.Begin() - 1);
    }
    last = std::min(last, bounds.last);
    const CoverageRange unasked{RecordState::kUnasked, {}};
    const CoverageRange& found = range != nullptr ? *range : unasked;
    Append(merged, found.state, {next, last}, found.learnt);
    next = last + 1;
  }
  return merged;
}

PeriodRange ExtentIn(Database& database, const std::string& table, long long section) {
  long long first = 0;
  long long last = 0;
  soci::indicator any = soci::i_null;
  database.Session() << "SELECT min(period), max(period) FROM " << table
                     << " WHERE section = :section",
      soci::into(first, any), soci::into(last, any), soci::use(section);
  return any == soci::i_ok ? PeriodRange{first, last} : kNone;
}

// An archive beside others of its instrument.
struct Archive {
  StoredSection section;
  Period period{};
  PeriodRange records;
  PeriodRange all;  // those that are known not to be there besides
};

std::vector<Archive> ArchivesOf(Database& database, const std::vector<StoredSection>& sections) {
  std::vector<Archive> archives;
  for (const StoredSection& section : sections) {
    const auto period = PeriodOf(section.kind);
    if (!period) continue;
    archives.push_back(
        {section, *period, KeptExtent(database, section), KnownExtent(database, section)});
  }
  return archives;
}

// The last one that is over at a moment.
PeriodNumber LastOver(Period period, const TAVDT& moment) {
  return NumberOf(period, moment).value_or(0) - 1;
}

// An archive whose records end before those of others has not stopped to be asked for.
PeriodNumber LastOf(const Archive& archive, const std::vector<Archive>& archives) {
  PeriodNumber last = archive.all.last;
  for (const Archive& other : archives) {
    if (other.period == archive.period) last = std::max(last, other.all.last);
    if (other.period >= archive.period || other.records.last < 0) continue;
    last = std::max(last, LastOver(archive.period, StartOf(other.period, other.records.last)));
  }
  return last;
}

PeriodRange BoundsOf(const Archive& archive, const std::vector<Archive>& archives,
                     const Selection& selection) {
  PeriodRange bounds{archive.all.first, LastOf(archive, archives)};
  if (selection.from) bounds.first = NumberOf(archive.period, TavOf(*selection.from)).value_or(0);
  if (selection.to) {
    bounds.last = std::min(NumberOf(archive.period, TavOf(*selection.to)).value_or(0),
                           LastOver(archive.period, TavOf(LocalNow())));
  }
  return bounds;
}

std::set<long long> IdsOf(const std::vector<StoredSection>& sections) {
  std::set<long long> ids;
  for (const StoredSection& section : sections) ids.insert(section.id);
  return ids;
}

}  // namespace

std::size_t SizeOf(const PeriodRange& range) {
  return range.last < range.first ? 0 : static_cast<std::size_t>(range.last - range.first + 1);
}

std::size_t Count(const Coverage& coverage, RecordState state) {
  std::size_t count = 0;
  for (const CoverageRange& range : coverage.ranges) {
    if (range.state == state) count += SizeOf(range.periods);
  }
  return count;
}

bool HasGaps(const Coverage& coverage) {
  return Count(coverage, RecordState::kMissing) + Count(coverage, RecordState::kUnasked) > 0;
}

PeriodRange KeptExtent(Database& database, const StoredSection& section) {
  return section.records.empty() ? kNone : ExtentIn(database, section.records, section.id);
}

PeriodRange KnownExtent(Database& database, const StoredSection& section) {
  return Union(KeptExtent(database, section), ExtentIn(database, "absences", section.id));
}

Coverage CoverageOf(Database& database, const StoredSection& section, const PeriodRange& bounds) {
  return {PeriodOf(section.kind).value(), bounds,
          Merge(KeptOf(database, section, bounds), AbsencesOf(database, section, bounds), bounds)};
}

std::vector<SectionCoverage> FindCoverage(Database& database, const Selection& selection) {
  const std::set<long long> wanted = IdsOf(FindSections(database, selection));
  std::vector<SectionCoverage> found;
  Selection all;
  all.serial = selection.serial;
  for (const auto& sections : ByInstrument(FindSections(database, all))) {
    const std::vector<Archive> archives = ArchivesOf(database, sections);
    for (const Archive& archive : archives) {
      const PeriodRange bounds = BoundsOf(archive, archives, selection);
      if (wanted.count(archive.section.id) == 0 || SizeOf(bounds) == 0) continue;
      found.push_back({archive.section, CoverageOf(database, archive.section, bounds)});
    }
  }
  return found;
}

std::vector<SectionCoverage> ListCoverage(const std::string& address, const Selection& selection) {
  const std::unique_ptr<Database> database = OpenStore(address);
  std::vector<SectionCoverage> found;
  database->Read([&] { found = FindCoverage(*database, selection); });
  return found;
}

}  // namespace host
