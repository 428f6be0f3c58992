// The rules that kept archives are checked by. docs/checks.md describes them.
#pragma once

#include <span>
#include <vector>

#include "host/checks/finding.h"
#include "host/checks/kept_readings.h"

namespace host {

// All sections of an instrument.
struct Subject {
  Database& database;
  const Selection& selection;
  const CheckOptions& options;
  const KeptReadings& readings;
  std::vector<StoredSection> sections;

  const Instrument& Who() const { return sections.front().of; }
};

struct Rule {
  const char* name;
  const char* about;  // a sentence
  // Of archives: that whose records are looked at, and that which they are compared with.
  tav::TitleKind kind{};
  tav::TitleKind whole{};
  void (*check)(const Subject& subject, const Rule& rule, std::vector<Finding>& findings);
};
std::span<const Rule> AllRules();
std::vector<std::string> RuleNames();

// By the names of rules; empty: all of them. In the order of instruments, then of rules. Within
// Read; throws std::runtime_error as FindSections does, UsageError for a rule that there is not.
std::vector<Finding> Check(Database& database, const Selection& selection,
                           const CheckOptions& options, const std::vector<std::string>& names = {});

// Each in a file of its own.
void CheckSums(const Subject& subject, const Rule& rule, std::vector<Finding>& findings);
void CheckTotals(const Subject& subject, const Rule& rule, std::vector<Finding>& findings);
void CheckClock(const Subject& subject, const Rule& rule, std::vector<Finding>& findings);
void CheckClockChange(const Subject& subject, const Rule& rule, std::vector<Finding>& findings);
void CheckAhead(const Subject& subject, const Rule& rule, std::vector<Finding>& findings);
void CheckSituations(const Subject& subject, const Rule& rule, std::vector<Finding>& findings);
void CheckWorkingTime(const Subject& subject, const Rule& rule, std::vector<Finding>& findings);
void CheckReplacement(const Subject& subject, const Rule& rule, std::vector<Finding>& findings);

}  // namespace host
