// The retry loop and the session, told as what the line gives and what the host hears.
#include "older/session/attempts.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>

#include "common/cp1251.h"
#include "older/models/catalogue.h"
#include "older/session/session.h"
#include "tests/support/older_line.h"
#include "tests/support/reading.h"

using namespace common::literals;
using older::ExchangeError;
using support::Bytes;
using support::Hex;
using support::older::Identification;

TEST_CASE("attempts, double reading and validity") {
  // What each exchange gives: a letter is a good reply of that content, a digit an error 1x.
  struct Case {
    const char* name;
    const char* exchanges;
    int attempts, doubleReading, validity;
    bool done;
    int error;
    std::vector<std::string> reports;
  };
  const Case cases[] = {
      {"at once", "a", 1, 0, 0, true, 0, {}},
      {"no attempts at all", "", 0, 0, 0, false, 0, {}},
      {"third time", "25a", 3, 0, 0, true, 0, {"1 Error: 12", "2 Error: 15"}},
      {"spent", "25", 2, 0, 0, false, 15, {"1 Error: 12", "2 Error: 15"}},
      {"twice equal", "aa", 1, 1, 0, true, 0, {}},
      {"twice different", "ab", 1, 1, 0, false, 0, {"1 Error Cmp: 0"}},
      {"different, then equal", "abbb", 2, 1, 0, true, 0, {"1 Error Cmp: 0"}},
      {"a failure between two readings keeps the first", "a2a", 2, 1, 0, true, 0, {"1 Error: 12"}},
      {"never valid", "aa", 2, 0, 5, false, 0, {"1 Error Valid: 0", "2 Error Valid: 0"}},
      {"never valid after two readings",
       "aaaa",
       2,
       2,
       1,
       false,
       0,
       {"1 Error Valid: 0", "2 Error Valid: 0"}},
  };
  for (const Case& c : cases) {
    CAPTURE(c.name);
    support::Reading reading;
    reading.Parameter(1, c.attempts);
    reading.Parameter(2, c.doubleReading);
    reading.Parameter(3, c.validity);
    reading.Parameter(4, 70);
    const older::Policy policy(reading.driver);
    std::array<std::uint8_t, 1> record{};
    std::array<std::uint8_t, 1> first{};
    const older::AttemptPlan plan{.name = "Name",
                                  .confirmation = older::ForArchives(policy),
                                  .validity = true,
                                  .record = record,
                                  .first = first};
    const char* next = c.exchanges;
    const older::ReadResult result =
        older::Attempt(reading.driver, policy, plan, [&]() -> ExchangeError {
          REQUIRE(*next != '\0');
          record[0] = static_cast<std::uint8_t>(*next++);
          return record[0] >= 'a' ? ExchangeError::kNone
                                  : static_cast<ExchangeError>(10 + record[0] - '0');
        });
    CHECK(*next == '\0');
    CHECK(result.done == c.done);
    CHECK(static_cast<int>(result.error) == c.error);
    std::vector<std::string> reports;
    for (const std::string& report : c.reports) reports.push_back(report + " / Name");
    CHECK(reading.stream.messages == reports);
    // A pause behind every failed attempt, the last one too.
    CHECK(support::clock::Pauses() == std::vector<unsigned>(c.reports.size(), 70));
  }
}

TEST_CASE("a final error spends no further attempt, and a pause of 0 is none") {
  support::Reading reading;
  reading.Parameter(1, 5);
  reading.Parameter(4, 0);
  const older::Policy policy(reading.driver);
  const older::AttemptPlan plan{.name = "Name", .final = ExchangeError::kReply3};
  int asked = 0;
  const auto result = older::Attempt(reading.driver, policy, plan, [&] {
    return ++asked == 1 ? ExchangeError::kNoData : ExchangeError::kReply3;
  });
  CHECK(asked == 2);
  CHECK_FALSE(result.done);
  CHECK(result.error == ExchangeError::kReply3);
  CHECK(reading.stream.messages == std::vector<std::string>{"1 Error: 15 / Name"});
  CHECK(support::clock::Pauses().empty());
}

TEST_CASE("a read that is never accepted ends with its attempts or with the host's stop") {
  for (const bool stops : {true, false}) {
    support::Reading reading;
    reading.Parameter(2, 2);
    reading.driver.stopRequest = 0;
    const older::Policy policy(reading.driver);
    const older::AttemptPlan plan{.name = "Name", .confirmation = older::ForOthers(policy)};
    int asked = 0;
    const auto result = older::Attempt(reading.driver, policy, plan, [&] {
      if (++asked < 20) return ExchangeError::kNone;
      if (stops) reading.driver.Stop();
      return stops ? ExchangeError::kNone : ExchangeError::kNoData;
    });
    CHECK(asked == 20);
    CHECK_FALSE(result.done);
    CHECK(result.error == (stops ? ExchangeError::kNone : ExchangeError::kNoData));
  }
}

TEST_CASE("identification replies") {
  struct Case {
    const char* name;
    Bytes reply;
    const char* failure;  // null: identified
    const older::Model* type = nullptr;
    const char* model = "";
    const char* version = "";
  };
  const auto changed = [](std::size_t index, std::uint8_t byte) {
    Bytes reply = Identification('T', 0x29, 3);
    reply[index] = byte;
    return reply;
  };
  const Case cases[] = {
      {"521", Identification('T', 0x29, 3), nullptr, &older::kModel521, "УРМ521"_w, "vX.2.10"},
      {"521, any checksum", changed(6, 0x77), nullptr, &older::kModel521, "УРМ521"_w, "vX.2.10"},
      {"521 of version 15", Identification('T', 0x29, 15), nullptr, &older::kModel521, "УРМ521"_w,
       "wX.2.14"},
      {"521 of version 9", Identification('T', 0x29, 9), nullptr, nullptr, "УРМ521"_w, "X.X.?"},
      {"521 of version 16", Identification('T', 0x29, 16), nullptr, nullptr, "УРМ521"_w, "X.X.?"},
      {"522", Identification('T', 0x2A, 200), nullptr, &older::kModel522, "УРМ522"_w, "V200"},
      {"523", Identification('T', 0x2B, 7), nullptr, &older::kModel523, "УРМ523"_w, "V7"},
      {"521.1x", Identification(0x92, 0x29, 1), nullptr, &older::kModel521x, "УРМ521"_w, "V1"},
      {"721", Identification('G', 0x29, 0), nullptr, &older::kModel721, "ДКГ721"_w, "V0"},
      {"another family", Identification('X', 0x29, 0), "Read %h"},
      {"another model of its family", Identification(0x92, 0x2A, 0), "Read %h"},
      {"start byte", changed(0, 0x11), "0"},
      {"network number", changed(1, 2), "1"},
      {"function", changed(2, 'R'), "2"},
      {"end byte", changed(7, 0), "7"},
      {"nothing", {}, "Read 0"},
      {"cut", Hex("10 01 3F 54"), "Read 4"},
  };
  for (const Case& c : cases) {
    CAPTURE(c.name);
    support::Reading reading;
    older::TKSplImpl state(reading.driver, older::kIdentities);
    reading.port.answer = [&](const Bytes& written) {
      return written.size() == 9 ? c.reply : Bytes{};
    };
    CHECK(older::Identify(state, 0) == (c.failure == nullptr));
    if (c.failure != nullptr) {
      CHECK(reading.stream.messages ==
            std::vector<std::string>{std::string(c.failure) + " / Error Version"});
      continue;
    }
    CHECK(older::FindModel(state.instrument) == c.type);
    CHECK(std::string(reading.driver.typeText) == c.model);
    CHECK(std::string(reading.driver.versionText) == c.version);
  }
}

TEST_CASE("identification with attempts, read twice for any double reading") {
  struct Case {
    const char* name;
    const char* replies;  // + identified, - not
    int doubleReading;
    bool done;
    int reports;
  };
  for (const Case& c : {Case{"third time", "--+", 0, true, 2}, Case{"spent", "---", 0, false, 3},
                        Case{"twice", "-++", 1, true, 1}, Case{"in any order", "+-+", 1, true, 1},
                        Case{"one is not enough", "+---", 2, false, 3}}) {
    CAPTURE(c.name);
    support::Reading reading;
    reading.Parameter(1, 3);
    reading.Parameter(2, c.doubleReading);
    older::TKSplImpl state(reading.driver, older::kIdentities);
    const char* next = c.replies;
    reading.port.answer = [&](const Bytes& written) {
      if (written.size() != 9) return Bytes{};
      return *next++ == '+' ? Identification('T', 0x29, 3) : Bytes{};
    };
    CHECK(older::IdentifyWithAttempts(state, 0) == c.done);
    CHECK(*next == '\0');
    const auto reported = [](const std::string& line) { return line.ends_with("/ PopitkaInit"); };
    CHECK(std::count_if(reading.stream.messages.begin(), reading.stream.messages.end(), reported) ==
          c.reports);
  }
}

TEST_CASE("the clock's bytes") {
  struct Case {
    const char* bytes;
    TAVDT clock;
  };
  for (const Case& c : {Case{"10 09 04 0D 05 09", {2016, 9, 4, 13, 5, 9}},
                        Case{"59 0C 1F 17 3B 3B", {2089, 12, 31, 23, 59, 59}},
                        Case{"5A 01 01 00 00 00", {1990, 1, 1, 0, 0, 0}},
                        Case{"10 01 01 30 00 00", {2016, 1, 1, 23, 0, 0}},
                        Case{"10 01 01 07 3C 01", {2016, 1, 1, 0, 60, 1}},
                        Case{"10 01 01 07 01 3C", {2016, 1, 1, 0, 1, 60}}}) {
    CAPTURE(c.bytes);
    const Bytes bytes = Hex(c.bytes);
    const TAVDT clock = older::DecodeClock(std::span(bytes).first<6>());
    CHECK(std::memcmp(&clock, &c.clock, sizeof clock) == 0);
  }
}
