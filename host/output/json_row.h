// A row as JSON: its values under the names of their fields.
#pragma once

#include <string>
#include <vector>

#include "host/fields/fields.h"
#include "host/output/json_writer.h"
#include "host/stream/cell.h"

namespace host {

class JsonRow {
 public:
  explicit JsonRow(const std::vector<Field>& fields);
  // "time": "2016-09-04 13:00:00", "t1_c": 71.5, ...; bytes that no column describes come last,
  // under "undescribed". What a cut row lacks is left out.
  void Append(JsonWriter& writer, const Cells& cells) const;

 private:
  std::vector<std::string> keys_;
};

}  // namespace host
