// Every model with every fault: what is not among the rows is among what is missing.
#include <doctest/doctest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "host/reading/periods.h"
#include "tests/host/completeness/simulated_reading.h"

using completeness::Asked;
using completeness::Instrument;
using completeness::Outcome;
using completeness::Read;
using completeness::Rows;

namespace {

using Texts = std::vector<std::string>;

const host::SectionAccount* FindAccount(const Outcome& outcome, const std::string& section) {
  for (const host::SectionAccount& account : outcome.end.accounts) {
    if (Rows::NameOf(account.kind, account.section) == section) return &account;
  }
  return nullptr;
}

bool Covers(const std::vector<host::DateRange>& ranges, const std::string& date) {
  return std::any_of(ranges.begin(), ranges.end(), [&](const host::DateRange& range) {
    return host::DateText(range.first) <= date && date <= host::DateText(range.last);
  });
}

// "2016-09-00 00:00:00" of a month is its first day in the lists.
std::string DateIn(const std::string& row) {
  std::string date = row.substr(0, row.find('|'));
  if (date.substr(8, 2) == "00") date.replace(8, 2, "01");
  return date;
}

// What the healthy instrument gave and this reading did not.
void CheckLost(const std::string& section, const Texts& all, const Texts& got,
               const Outcome& outcome, bool& lost) {
  const host::SectionAccount* account = FindAccount(outcome, section);
  for (const std::string& row : all) {
    if (std::find(got.begin(), got.end(), row) != got.end()) continue;
    INFO("lost ", row, got.empty() ? "" : " got " + got.back());
    lost = true;
    REQUIRE(account != nullptr);
    CHECK(account->failed > 0);
    const bool dated = host::PeriodOf(account->kind).has_value();
    if (dated) CHECK(Covers(account->missing, DateIn(row)));
  }
}

// What came of parameters stands under their own names.
void CheckParameters(const std::string& all, const std::string& got) {
  std::istringstream whole(all), pieces(got);
  for (std::string one, other; std::getline(pieces, other, '|') && std::getline(whole, one, '|');) {
    if (!other.empty()) CHECK(other == one);
  }
}

// Nothing protects an identification: a wrong one passes for another version, intended.
bool SameInstrument(const Outcome& healthy, const Outcome& outcome) {
  const auto versions = [](const Outcome& reading) {
    std::set<std::string> told;
    for (const std::string& message : reading.rows.messages) {
      if (message.starts_with("Version: ")) told.insert(message);
    }
    return told;
  };
  return outcome.end.accounts.empty() || versions(healthy) == versions(outcome);
}

void CheckReading(const Outcome& healthy, const Outcome& outcome) {
  if (!SameInstrument(healthy, outcome)) return;
  bool lost = false;
  for (const auto& [section, all] : healthy.rows.all) {
    INFO(section);
    const auto found = outcome.rows.all.find(section);
    const Texts got = found == outcome.rows.all.end() ? Texts() : found->second;
    if (section[0] != 'B') CHECK(std::set(got.begin(), got.end()).size() == got.size());
    // Parameters may come in pieces that are put together: the last row counts.
    const Texts kept = section[0] == 'B' && !got.empty() ? Texts{got.back()} : got;
    if (outcome.end.accounts.empty()) {
      lost = true;
    } else {
      CheckLost(section, all, kept, outcome, lost);
    }
    for (const std::string& row : got) {
      if (section[0] == 'B') CheckParameters(all.front(), row);
    }
    if (section[0] == 'B') continue;
    for (const std::string& row : got) CHECK(std::count(all.begin(), all.end(), row) == 1);
  }
  const bool told = std::any_of(outcome.end.accounts.begin(), outcome.end.accounts.end(),
                                [](const auto& account) { return account.failed > 0; });
  if (lost) CHECK(outcome.end.ending != host::Ending::kRead);
  if (outcome.end.ending == host::Ending::kRead) CHECK(!told);
  if (outcome.end.ending == host::Ending::kGaps) CHECK(told);
}

}  // namespace

TEST_CASE("whatever a fault takes from a reading is told") {
  for (const simulator::Choice& model : simulator::Models()) {
    const Outcome healthy = Read(Asked(model.name, 1, 0), Instrument(model.name));
    CHECK(healthy.end.ending == host::Ending::kRead);
    for (const simulator::Choice& fault : simulator::FaultsOf(model.name)) {
      for (const int every : {3, 7}) {
        for (const int attempts : {1, 3}) {
          for (const int retryGaps : {0, 1}) {
            INFO(std::string(model.name), " ", std::string(fault.name), ":", every, " attempts ",
                 attempts, " retries ", retryGaps);
            CheckReading(healthy, Read(Asked(model.name, attempts, retryGaps),
                                       Instrument(model.name, {{fault.name, every}})));
          }
        }
      }
    }
  }
}
