// The output stream taken apart by its write calls, independently of who wrote it.
#pragma once

#include <string>
#include <vector>

#include "tests/support/hex.h"

namespace support {

struct HeaderRecord {
  std::string name, unit, caption, group;
  char type = 0, role = 0;
  int width = 0;
};

struct Section {
  char kind = 0;
  std::string model, version, number, title;  // as in the title record
  Bytes time;
  int announced = -1;  // columns, -1: not announced
  std::vector<HeaderRecord> columns;
  std::vector<std::vector<Bytes>> rows;  // the data records behind each row marker
  bool ended = false;

  // The row's bytes as one piece.
  Bytes Row(std::size_t row) const;
  // The bytes of a column in a row; throws std::out_of_range when there are none.
  Bytes Cell(std::size_t row, const std::string& column) const;
  // The number in a column of type f, d, L, S or B.
  double Number(std::size_t row, const std::string& column) const;
  // "2016-09-04 13:05:09", of a column of type t.
  std::string Date(std::size_t row, const std::string& column) const;
  const HeaderRecord& Column(const std::string& name) const;
};

// Throws std::runtime_error with the index of a write that is out of place.
std::vector<Section> TakeApart(const std::vector<Bytes>& writes);

}  // namespace support
