// Writing archive records: what is new, what is equal, what has changed.
#pragma once

#include <soci/soci.h>

#include <functional>
#include <string>
#include <vector>

#include "host/store/database.h"
#include "host/store/record_layout.h"

namespace host {

struct RecordPlace {
  long long section = 0;
  long long period = 0;  // its number, see host/reading/periods.h
  std::string time;      // "2016-09-04 13:00:00"
  long long reading = 0;
  long long format = 0;
};

enum class PutResult { kNew, kEqual, kChanged, kLeft };

class RecordTable {
 public:
  // Whether two formats contradict each other in a unit.
  using Contradict = std::function<bool(long long, long long)>;
  // database must outlive it.
  RecordTable(Database& database, const RecordLayout& layout, Contradict contradict);

  // The slots that a record's values go into, in the order of the layout, and what the layout has
  // no column for, as JSON.
  std::vector<Slot>& Values() { return values_; }
  Slot& Other() { return values_[kOther]; }
  static constexpr std::size_t kFirstValue = 4;

  // Within a transaction. A different record becomes the current one, the former is kept; unless it
  // is not to replace one of another reading.
  PutResult Put(const RecordPlace& place, bool replace);

 private:
  static constexpr std::size_t kOther = 3;

  void Place(const RecordPlace& place);
  void LoadKept();
  bool IsSame() const;
  void KeepFormer(const RecordPlace& place);

  Database& database_;
  Contradict contradict_;
  std::vector<Slot> values_;  // time, reading, format, other, the values, section, period
  std::vector<Slot> kept_;    // the same of the record that is there
  soci::statement insert_;
  soci::statement select_;
  soci::statement update_;
};

}  // namespace host
