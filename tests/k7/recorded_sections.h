// The output stream taken apart by its write calls: titles, column headers, rows, end markers.
#pragma once

#include <string>
#include <vector>

#include "tests/support/hex.h"

namespace k7test {

struct RecordedColumn {
  std::string name, unit, caption, group;
  char type = 0, role = 0;
  int width = 0;
};

struct RecordedSection {
  char kind = 0;
  std::string type, version, number, name;
  support::Bytes time;
  int announced = -1;  // the column-count record; -1: none
  std::vector<RecordedColumn> columns;
  std::vector<support::Bytes> rows;
  int endMarkers = 0;

  // One character a column.
  std::string Types() const;
  std::string Roles() const;
  // "SP G1 G2"
  std::string Names() const;
  const RecordedColumn& Column(const std::string& name) const;
  // The bytes of a row's column.
  support::Bytes Field(std::size_t row, const std::string& name) const;
};

// Throws std::runtime_error when the stream is not what the driver writes.
std::vector<RecordedSection> Sections(const std::vector<support::Bytes>& writes);

}  // namespace k7test
