// A value on its way into the database or out of it.
#pragma once

#include <soci/soci.h>

#include <string>

#include "host/stream/cell.h"

namespace host {

struct Slot {
  enum class Type { kInteger, kReal, kWideReal, kText };

  Slot(std::string column, Type kind) : name(std::move(column)), type(kind) {}

  std::string name;  // of the column
  Type type;
  soci::indicator indicator = soci::i_null;
  long long integer = 0;
  double number = 0;
  std::string text;

  bool IsNull() const { return indicator == soci::i_null; }
  void Clear() { indicator = soci::i_null; }
  void Set(long long value);
  void Set(const std::string& value);
  // Whether the cell's type is the slot's; if not, it is NULL afterwards. So is what is no number.
  // A single-precision value becomes the number that its shortest text says: 0.1, not
  // 0.10000000149.
  bool Take(const Cell& cell);
};

// The statement puts what it finds in its next column there; before it is defined.
void Into(soci::statement& statement, Slot& slot);

bool SameValue(const Slot& left, const Slot& right);

// The number that a float's shortest text says; double as it is; 0 for others.
double ShownNumber(const Cell& cell);

}  // namespace host
