// A row as JSON: its values under the names of their columns.
#pragma once

#include <string>
#include <vector>

#include "host/output/json_writer.h"
#include "host/stream/cell.h"
#include "host/stream/section.h"

namespace host {

// Names for the rows of a section. taken: names that stand beside them in the same object.
class JsonRow {
 public:
  explicit JsonRow(const Section& section, const std::vector<std::string>& taken = {});
  // "DT": "2016-09-04 13:00:00", "t1": 71.5, ...; bytes that no column describes come last, under
  // "undescribed". What a cut row lacks is null in the first one and left out in further ones: a
  // reading has no more than one, and a stream of many would cost more than it brings.
  void Append(JsonWriter& writer, const Cells& cells);

 private:
  std::vector<std::string> keys_;
  bool cut_ = false;  // a cut row has been
};

}  // namespace host
