// The tables of archive records, made from the table of fields: one for each archive of a model.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/fields/find.h"
#include "host/store/slot.h"
#include "host/stream/section.h"

namespace host {

struct RecordLayout {
  std::string table;             // "records_523_hours"
  std::string view;              // "hours_523"
  std::string kind;              // "hours"
  std::vector<Slot> values;      // a column for each field but the record's time
  std::optional<Model> model{};  // none: records of any
};

// Sections that the table of fields does not know: all of their values stand in the column "other".
inline constexpr char kOtherRecords[] = "records_other";

// Of all models.
const std::vector<RecordLayout>& RecordLayouts();

// Where an archive section's records stand.
const RecordLayout& RecordLayoutOf(const Section& section);
// By the table's name.
const RecordLayout& RecordLayoutOf(const std::string& table);

// Columns of every such table before those of the fields, and after them.
inline constexpr const char* kRecordColumns[] = {"time", "reading", "format", "other"};
inline constexpr const char* kRecordKey[] = {"section", "period"};

}  // namespace host
