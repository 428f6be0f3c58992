// What the store keeps beside archive records, within a transaction each: readings, current values,
// parameters, log entries, and what is absent.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "host/reading/periods.h"
#include "host/reading/run_listener.h"
#include "host/store/database.h"

namespace host {

using FieldValues = nlohmann::ordered_json;  // values by field; null: no value

struct RecordCounts {
  long long added = 0;
  long long changed = 0;
  long long equal = 0;
  long long left = 0;  // that differ, and did not replace what is kept
};

class ReadingRows {
 public:
  // database must outlive it.
  explicit ReadingRows(Database& database) : database_(database) {}

  void Begin(const Run& run);
  long long Id() const { return id_; }
  void SetInstrument(long long instrument);
  void End(const RunEnd& end, const RecordCounts& counts);

  struct Place {
    long long section = 0;
    long long format = 0;
    std::string time;  // the instrument's clock; of a log entry its own
  };
  void AddValues(const Place& place, const FieldValues& values);
  // A parameter that has no value now keeps the one that it had; nothing is added when all that
  // have one are as before.
  void AddParameters(const Place& place, const FieldValues& parameters);
  // Nothing is added when the entry is there.
  void AddLogEntry(const Place& place, const FieldValues& entry);
  // Records that are not there; what was not over for an hour by the instrument's clock is not to
  // be there yet. records: the table of the section's records; what stands there is not absent.
  void SetAbsent(long long section, const SectionAccount& account, const TAVDT& clock);
  void ClearAbsent(long long section, const std::string& records);

 private:
  // Periods of an archive whose records are to be there.
  struct Due {
    Period period{};
    PeriodNumber last = 0;
  };
  static Due DueOf(tav::TitleKind kind, const TAVDT& clock);
  void SetAbsent(long long section, const Due& due, const std::vector<DateRange>& ranges,
                 const std::string& state);

  Database& database_;
  long long id_ = 0;
};

}  // namespace host
