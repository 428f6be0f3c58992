// All fields of all sections of all models, for showing them.
#pragma once

#include <string>
#include <vector>

#include "host/fields/fields.h"

namespace host {

struct ListedColumn {
  std::string column;      // the driver's name,
  std::string caption;     // the same where the driver has none
  std::string driverUnit;  // as in Entry: with '|', or "<RP1k>"
  tav::Type type;
  tav::Role role;
  std::vector<Field> fields;  // one for each unit that the settings may choose, at least one
  std::string note;
};

// Sections of a model with the same columns.
struct ListedTable {
  std::string model;
  std::vector<std::string> sections;
  std::vector<ListedColumn> columns;
};

std::vector<ListedTable> ListFields();

}  // namespace host
