// An archive of an instrument, record by record in the order of time, with the columns that a rule
// needs.
#pragma once

#include <soci/soci.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/fields/layout.h"
#include "host/reading/periods.h"
#include "host/store/record_layout.h"
#include "host/store/selection.h"

namespace host {

// What adds up: from records to a longer one, and to totals.
std::vector<Quantity> Amounts();

// Both included; empty when last is less than first.
struct IntervalRange {
  PeriodNumber first = 0;
  PeriodNumber last = -1;
};

// What a record is of: the number of the hour, day or month that it was counted in, whatever date
// the instrument gives it.
class Archive {
 public:
  // section has records.
  explicit Archive(const StoredSection& section);

  const StoredSection& Section() const { return section_; }
  Period Kind() const { return kind_; }
  // Columns of its table whose quantity is one of these.
  std::vector<std::string> FieldsOf(const std::vector<Quantity>& quantities, Span span) const;

  // Its amounts are totals as they stood at the end of a day.
  bool HoldsTotals() const;
  // Hours of a 521 have 0, not "no value", for a pipe that the mode leaves out.
  bool HasZerosForNoValue() const {
    return layout_->model == Model::k521 && kind_ == Period::kHour;
  }

  // The older protocol's records carry the time at which they were closed, the others that at which
  // they were begun.
  PeriodNumber IntervalOf(PeriodNumber period) const { return period - shift_; }
  PeriodNumber PeriodOf(PeriodNumber interval) const { return interval + shift_; }
  // The date of an interval's record.
  std::string DateOf(PeriodNumber interval) const;
  // Those whose records are dated within the selection.
  IntervalRange Within(const Selection& selection) const;

 private:
  StoredSection section_;
  const RecordLayout* layout_;
  Period kind_;
  PeriodNumber shift_;
};

// The intervals of a period that an interval of a longer one consists of.
IntervalRange PartsOf(Period longer, PeriodNumber interval, Period parts);

// Of the instrument, in the order of sections.
std::vector<Archive> FindArchives(const std::vector<StoredSection>& sections, tav::TitleKind kind);
// Of the same part of the instrument; null when there is none.
const Archive* FindPeer(const std::vector<Archive>& archives, const Archive& archive);

// Within Read. Neither the database nor the archive may go before it.
class ArchiveScan {
 public:
  // where: a condition besides, or empty.
  ArchiveScan(Database& database, const Archive& archive, const std::vector<std::string>& fields,
              const IntervalRange& range, const std::string& where = "");

  // The next record; false: there is none.
  bool Next();
  PeriodNumber Interval() const { return archive_.IntervalOf(period_); }
  long long Format() const { return format_; }
  // In the order of the fields; not a number where there is no value.
  const std::vector<double>& Values() const { return values_; }

 private:
  const Archive& archive_;
  long long first_;
  long long last_;
  long long section_;
  long long period_ = 0;
  long long format_ = 0;
  std::vector<double> values_;
  std::vector<soci::indicator> known_;
  soci::statement select_;
};

// The units of fields in each format.
class FormatUnits {
 public:
  FormatUnits(Database& database, std::vector<std::string> fields)
      : database_(database), fields_(std::move(fields)) {}

  // In the order of the fields; empty: none, or not known. Not while a scan is under way.
  void Load(const StoredSection& section);
  // Of a format of a section that was loaded.
  const std::vector<std::string>& Of(long long format) const;

 private:
  Database& database_;
  std::vector<std::string> fields_;
  std::map<long long, std::vector<std::string>> units_;
};

}  // namespace host
