// The continuous reading of a model 521.
#include <doctest/doctest.h>

#include <algorithm>

#include "common/cp1251.h"
#include "tests/support/older_line.h"
#include "tests/support/reading.h"
#include "tests/support/sections.h"
#include "tests/support/simulated_line.h"

using namespace common::literals;
using support::Bytes;
using support::Section;

namespace {

// Runs a batch of these groups and then some cycles, the instrument's clock at this time.
struct Continuous : support::Reading {
  Continuous(const simulator::ClockTime& clock, const std::string& groups, const SYSTEMTIME& from,
             const SYSTEMTIME& to, int cycles) {
    simulator::Settings settings;
    settings.clock = clock;
    Connect(port, settings);
    driver.SetupDateTime(from, to);
    Groups(groups);
    Parameter(16, 1);
    stream.onMessage = [this, cycles, seen = 0](const std::string& line) mutable {
      if (line == "reading... / Nonstop" && ++seen > cycles) driver.Stop();
    };
    Run();
  }

  // "O, H 2016-09-04 12:00:00, ..." of the sections behind the batch.
  std::string AfterBatch(std::size_t batch) const {
    std::string told;
    const auto sections = support::TakeApart(stream.writes);
    for (std::size_t i = batch; i < sections.size(); ++i) {
      if (!told.empty()) told += ", ";
      told += sections[i].kind;
      if (sections[i].kind != 'O') told += ' ' + sections[i].Date(0, "DT");
    }
    return told;
  }
};

}  // namespace

TEST_CASE("an hour is fetched from the fifth minute on, a day with an hour alone") {
  struct Case {
    const char* name;
    simulator::ClockTime clock;
    const char* groups;
    std::size_t batch;
    const char* cycles;  // the last one is the one in which the host stops
  };
  const SYSTEMTIME from{2016, 9, 0, 4, 11};
  const SYSTEMTIME to{2016, 9, 0, 4, 12};
  const Case cases[] = {
      {"minute 4", {2016, 9, 4, 13, 4, 59}, "H", 1, "O, O, O, O"},
      // The batch ended with hour 12: hour 13 is next, and day 4, which the batch did not read,
      // starts at the clock.
      {"minute 5",
       {2016, 9, 4, 13, 5, 0},
       "H",
       1,
       "O, H 2016-09-04 13:00:00, D 2016-09-04 13:05:00, O, O, O"},
      // Two hours behind: one a cycle, and days with them.
      {"two hours",
       {2016, 9, 4, 14, 30, 0},
       "HS",
       2,
       "O, H 2016-09-04 13:00:00, D 2016-09-04 11:00:00, O, H 2016-09-04 14:00:00, O, O"},
      {"no archive in the batch",
       {2016, 9, 4, 13, 6, 7},
       "T",
       1,
       "O, H 2016-09-04 13:06:07, D 2016-09-04 13:06:07, O, O, O"},
  };
  for (const Case& c : cases) {
    CAPTURE(c.name);
    const Continuous r(c.clock, c.groups, from, to, 3);
    CHECK(r.AfterBatch(c.batch) == c.cycles);
  }
}

TEST_CASE("the continuous reading ends with the host's stop and no further report") {
  const SYSTEMTIME at{2016, 9, 0, 4, 12};
  Continuous r({2016, 9, 4, 13, 5, 0}, "T", at, at, 2);
  CHECK(r.stream.CountOf("OK / ReadStop") == 0);
  CHECK(r.stream.CountOf("Error / ReadStop") == 0);
  // One notice before the first cycle, one for each section written in three cycles.
  CHECK(r.stream.CountOf(" /  / 1") == 6);
  const auto sections = support::TakeApart(r.stream.writes);
  CHECK(sections.at(1).title == "ОВ"_w);
  CHECK_FALSE(sections.at(1).ended);
  CHECK(sections.at(2).kind == 'H');
  CHECK(sections.at(2).title == "");  // the section text, which this model never sets
  CHECK(sections.at(2).ended);
}

TEST_CASE("a cycle that fails is told, and the next one starts over") {
  support::Reading r;
  Connect(r.port, {});
  const auto instrument = r.port.answer;
  int clocks = 0;
  r.port.answer = [&](const Bytes& written) {
    const bool clock = support::older::IsRequest(written, 'R') && written[3] == 100;
    return clock && ++clocks == 2 ? Bytes{} : instrument(written);
  };
  r.Parameter(16, 1);
  r.stream.onMessage = [&, cycles = 0](const std::string& line) mutable {
    if (line == "reading... / Nonstop" && ++cycles == 3) r.driver.Stop();
  };
  r.Run();
  CHECK(r.stream.CountOf("12 / Dt") == 1);
  // Before a cycle that follows a silent one, and only there.
  auto pauses = support::clock::Pauses();
  CHECK(std::count(pauses.begin(), pauses.end(), 25U) == 1);
  CHECK(support::TakeApart(r.stream.writes).size() >= 2);
}
