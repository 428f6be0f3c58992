// What is asked of an instrument.
#pragma once

#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>

#include "TKSplDrv/records.h"
#include "TKSplDrv/types.h"

namespace host {

// What the caller asked for makes no sense.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct ReadGroupName {
  tav::ReadGroup group;
  const char* name;
};

// In the order in which they are told to people.
inline constexpr ReadGroupName kReadGroups[] = {
    {tav::ReadGroup::kDatabase, "database"}, {tav::ReadGroup::kCurrent, "current values"},
    {tav::ReadGroup::kMonths, "months"},     {tav::ReadGroup::kDays, "days"},
    {tav::ReadGroup::kHours, "hours"},       {tav::ReadGroup::kLogs, "logs"}};

// The letters of all of them.
inline std::string AllReadGroups() {
  std::string letters;
  for (const ReadGroupName& known : kReadGroups) letters += static_cast<char>(known.group);
  return letters;
}

// As options and people call it.
inline const char* KindName(tav::Mode kind) { return kind == tav::Mode::kK7 ? "k7" : "older"; }

struct ReadSettings {
  tav::Mode kind = tav::Mode::kOlder;
  int number = 1;           // network number of the instrument
  std::optional<int> baud;  // bit/s; none: the first speed that the driver offers
  std::string groups = AllReadGroups();
  SYSTEMTIME from{};
  SYSTEMTIME to{};
  int attempts = 3;
  bool doubleRead = false;
  bool validity = false;
  int pause = 0;  // ms
  bool follow = false;
  int retryGaps = 1;                   // how often missing records are asked for again
  std::chrono::seconds patience{120};  // without getting on; zero: without an end
  // Difference between the instrument's clock and this machine's that is worth a warning; zero:
  // none is. Nothing: they are not compared.
  std::optional<std::chrono::seconds> clockWarning{120};
};

}  // namespace host
