#include "host/checks/archive.h"

#include <algorithm>
#include <limits>

namespace host {
namespace {

constexpr PeriodNumber kHoursOfDay = 24;
constexpr std::string_view kTotalEnd = "_total";

bool IsDatedByItsEnd(const std::optional<Model>& model) {
  return model != Model::kK7521 && model != Model::kK7523;
}

std::string SelectOf(const StoredSection& section, const std::vector<std::string>& fields,
                     const std::string& where) {
  std::string statement("SELECT period, format");
  for (const std::string& field : fields) statement.append(", ").append(field);
  statement.append(" FROM ").append(section.records);
  statement.append(" WHERE section = :section AND period >= :first AND period <= :last");
  if (!where.empty()) statement.append(" AND ").append(where);
  return statement.append(" ORDER BY period");
}

PeriodNumber FirstDay(PeriodNumber month) {
  return NumberOf(Period::kDay, StartOf(Period::kMonth, month)).value_or(0);
}

}  // namespace

std::vector<Quantity> Amounts() {
  return {Quantity::kVolume, Quantity::kWorkingVolume, Quantity::kMass, Quantity::kHeat,
          Quantity::kWorkingTime};
}

Archive::Archive(const StoredSection& section)
    : section_(section),
      layout_(&RecordLayoutOf(section.records)),
      kind_(host::PeriodOf(section.kind).value_or(Period::kHour)),
      shift_(IsDatedByItsEnd(layout_->model) ? 1 : 0) {}

std::vector<std::string> Archive::FieldsOf(const std::vector<Quantity>& quantities,
                                           Span span) const {
  std::vector<std::string> fields;
  for (const Slot& value : layout_->values) {
    const bool total = value.name.ends_with(kTotalEnd);
    if (total != (span == Span::kTotal)) continue;
    const std::size_t length = value.name.size() - (total ? kTotalEnd.size() : 0);
    const Quantity quantity = FindName(std::string_view(value.name).substr(0, length)).quantity;
    const bool meant =
        std::find(quantities.begin(), quantities.end(), quantity) != quantities.end();
    if (meant) fields.push_back(value.name);
  }
  return fields;
}

bool Archive::HoldsTotals() const {
  return std::any_of(layout_->values.begin(), layout_->values.end(),
                     [](const Slot& value) { return value.name.ends_with(kTotalEnd); });
}

std::string Archive::DateOf(PeriodNumber interval) const {
  return DateText(StartOf(kind_, PeriodOf(interval)));
}

IntervalRange Archive::Within(const Selection& selection) const {
  constexpr PeriodNumber kFar = 1LL << 40;
  const auto number = [this](const std::optional<SYSTEMTIME>& time, PeriodNumber otherwise) {
    return IntervalOf(time ? NumberOf(kind_, TavOf(*time)).value_or(otherwise) : otherwise);
  };
  IntervalRange range{number(selection.from, 0), number(selection.to, kFar)};
  const bool begun =
      selection.from && IsEarlier(StartOf(kind_, PeriodOf(range.first)), TavOf(*selection.from));
  if (begun) ++range.first;
  return range;
}

IntervalRange PartsOf(Period longer, PeriodNumber interval, Period parts) {
  IntervalRange range{interval, interval};
  if (longer == Period::kMonth) range = {FirstDay(interval), FirstDay(interval + 1) - 1};
  if (parts == Period::kHour) {
    range = {range.first * kHoursOfDay, range.last * kHoursOfDay + kHoursOfDay - 1};
  }
  return range;
}

std::vector<Archive> FindArchives(const std::vector<StoredSection>& sections, tav::TitleKind kind) {
  std::vector<Archive> archives;
  for (const StoredSection& section : sections) {
    if (section.kind == kind && !section.records.empty()) archives.emplace_back(section);
  }
  return archives;
}

const Archive* FindPeer(const std::vector<Archive>& archives, const Archive& archive) {
  const auto found = std::find_if(archives.begin(), archives.end(), [&](const Archive& each) {
    return each.Section().system == archive.Section().system;
  });
  return found == archives.end() ? nullptr : &*found;
}

ArchiveScan::ArchiveScan(Database& database, const Archive& archive,
                         const std::vector<std::string>& fields, const IntervalRange& range,
                         const std::string& where)
    : archive_(archive),
      first_(archive.PeriodOf(range.first)),
      last_(archive.PeriodOf(range.last)),
      section_(archive.Section().id),
      values_(fields.size()),
      known_(fields.size(), soci::i_null),
      select_(database.Session()) {
  select_.exchange(soci::use(section_));
  select_.exchange(soci::use(first_));
  select_.exchange(soci::use(last_));
  select_.exchange(soci::into(period_));
  select_.exchange(soci::into(format_));
  for (std::size_t i = 0; i < fields.size(); ++i) {
    select_.exchange(soci::into(values_[i], known_[i]));
  }
  select_.alloc();
  select_.prepare(SelectOf(archive.Section(), fields, where));
  select_.define_and_bind();
  select_.execute();
}

bool ArchiveScan::Next() {
  if (!select_.fetch()) return false;
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (known_[i] != soci::i_ok) values_[i] = std::numeric_limits<double>::quiet_NaN();
  }
  return true;
}

void FormatUnits::Load(const StoredSection& section) {
  long long format = 0;
  std::string field;
  std::string unit;
  soci::indicator known = soci::i_null;
  soci::statement select =
      (database_.Session().prepare
           << "SELECT f.id, c.field, c.unit FROM formats f JOIN columns c ON c.format = f.id "
              "WHERE f.section = :section",
       soci::use(section.id), soci::into(format), soci::into(field), soci::into(unit, known));
  for (select.execute(); select.fetch();) {
    std::vector<std::string>& units = units_[format];
    units.resize(fields_.size());
    const auto found = std::find(fields_.begin(), fields_.end(), field);
    if (found == fields_.end() || known != soci::i_ok) continue;
    units[static_cast<std::size_t>(found - fields_.begin())] = unit;
  }
}

const std::vector<std::string>& FormatUnits::Of(long long format) const {
  static const std::vector<std::string> kNone;
  const auto found = units_.find(format);
  return found == units_.end() ? kNone : found->second;
}

}  // namespace host
