// The retry loop, told as what the exchanges give and what the host hears.
#include "older/session/attempts.h"

#include <doctest/doctest.h>

#include <array>

#include "tests/support/reading.h"

using older::ExchangeError;

namespace {

struct Asked {
  int attempts = 1, doubleReading = 0, validity = 0, pause = 70;
  // What each exchange gives: a letter is a good reply of that content, a digit an error 1x, N the
  // final error; after ! the host asks to stop.
  const char* exchanges;
  bool archive = true;  // or another read
};

// Runs the loop; every exchange has to be asked for.
older::ReadResult Run(support::Reading& reading, const Asked& asked) {
  reading.Parameter(1, asked.attempts);
  reading.Parameter(2, asked.doubleReading);
  reading.Parameter(3, asked.validity);
  reading.Parameter(4, asked.pause);
  reading.driver.stopRequest = 0;
  const older::Policy policy(reading.driver);
  std::array<std::uint8_t, 1> record{}, first{};
  const older::AttemptPlan plan{
      .name = "Name",
      .confirmation = asked.archive ? older::ForArchives(policy) : older::ForOthers(policy),
      .validity = asked.archive,
      .final = ExchangeError::kReply3,
      .record = record,
      .first = first};
  const char* next = asked.exchanges;
  const auto result = older::Attempt(reading.driver, policy, plan, [&]() -> ExchangeError {
    if (*next == '!') reading.driver.Stop(), ++next;
    REQUIRE(*next != '\0');
    record[0] = static_cast<std::uint8_t>(*next++);
    if (record[0] >= 'a') return ExchangeError::kNone;
    if (record[0] == 'N') return ExchangeError::kReply3;
    return static_cast<ExchangeError>(10 + record[0] - '0');
  });
  CHECK(*next == '\0');
  return result;
}

}  // namespace

TEST_CASE("attempts, double reading and validity") {
  const struct {
    const char* name;
    Asked asked;
    bool done;
    int error;
    std::vector<std::string> reports;
  } cases[] = {
      {"at once", {1, 0, 0, 70, "a"}, true, 0, {}},
      {"no attempts at all", {0, 0, 0, 70, ""}, false, 0, {}},
      {"third time", {3, 0, 0, 70, "25a"}, true, 0, {"1 Error: 12", "2 Error: 15"}},
      {"spent", {2, 0, 0, 70, "25"}, false, 15, {"1 Error: 12", "2 Error: 15"}},
      {"a final error spends no attempt", {5, 0, 0, 70, "5N"}, false, 23, {"1 Error: 15"}},
      {"twice equal", {1, 1, 0, 70, "aa"}, true, 0, {}},
      {"twice different", {1, 1, 0, 70, "ab"}, false, 0, {"1 Error Cmp: 0"}},
      {"different, then equal", {2, 1, 0, 70, "abbb"}, true, 0, {"1 Error Cmp: 0"}},
      {"a failure between keeps the first", {2, 1, 0, 70, "a2a"}, true, 0, {"1 Error: 12"}},
      {"never valid", {2, 0, 5, 70, "aa"}, false, 0, {"1 Error Valid: 0", "2 Error Valid: 0"}},
      {"never valid, twice equal", {1, 2, 1, 70, "aa"}, false, 0, {"1 Error Valid: 0"}},
      {"others once below 2", {1, 1, 1, 70, "a", false}, true, 0, {}},
      {"others never from 2 on", {1, 2, 0, 70, "aaaa2", false}, false, 12, {"1 Error: 12"}},
      {"until the host stops", {1, 2, 0, 70, "aaaa!a", false}, false, 0, {}},
      {"a pause of 0 is none", {1, 0, 0, 0, "2"}, false, 12, {"1 Error: 12"}},
      {"nor is a negative one", {1, 0, 0, -5, "2"}, false, 12, {"1 Error: 12"}},
  };
  for (const auto& c : cases) {
    CAPTURE(c.name);
    support::Reading reading;
    const older::ReadResult result = Run(reading, c.asked);
    CHECK(result.done == c.done);
    CHECK(static_cast<int>(result.error) == c.error);
    std::vector<std::string> reports;
    for (const std::string& report : c.reports) reports.push_back(report + " / Name");
    CHECK(reading.stream.messages == reports);
    // A pause behind every failed attempt, the last one too.
    CHECK(support::clock::Pauses() ==
          std::vector<unsigned>(c.asked.pause > 0 ? c.reports.size() : 0, 70));
  }
}

TEST_CASE("a stop ends what is beyond a patient host's attempts and pauses") {
  support::Reading reading;
  const std::string failures = "!" + std::string(32, '2');
  Run(reading, {100, 0, 0, 0, failures.c_str()});
  CHECK(reading.stream.messages.size() == 32);

  const std::pair<const char*, std::vector<unsigned>> pauses[] = {{"2", {60000, 60000, 60000}},
                                                                  {"!2", {}}};
  for (const auto& [exchanges, taken] : pauses) {
    support::Reading paused;
    Run(paused, {1, 0, 0, 180000, exchanges});
    CHECK(support::clock::Pauses() == taken);
  }
}
