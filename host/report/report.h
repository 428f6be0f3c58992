// A page over what the store keeps: one file that a browser shows without anything else.
// docs/report.md describes what it holds.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "host/checks/finding.h"
#include "host/fields/units.h"
#include "host/store/selection.h"

namespace host {

struct ReportOptions {
  Selection selection;
  bool all = false;  // without a begin: everything, else a year up to the newest record
  UnitChoice units;
  std::string language = "en";  // or "ru"
  // "2016-09": statements of that month instead of the report; the selection's dates are its own.
  std::string statement;
  CheckOptions checks;
  SYSTEMTIME made{};  // when, of this machine's clock
};

struct Report {
  std::string page;  // UTF-8
  std::size_t instruments = 0;
};

// Told before each instrument: how many are done, of how many.
using ReportProgress = std::function<void(std::size_t done, std::size_t all)>;

// Within Read. Throws std::runtime_error as FindSections does.
Report MakeReport(Database& database, const ReportOptions& options, const ReportProgress& tell);

}  // namespace host
