#include "host/reading/archive_ledger.h"

#include <doctest/doctest.h>

#include <string>

using host::ArchiveLedger;
using host::Period;

namespace {

constexpr TAVDT Hour(unsigned char hour) { return {2016, 9, 4, hour, 0, 0}; }

ArchiveLedger Hours(unsigned char last) {
  ArchiveLedger ledger(Period::kHour, {*host::NumberOf(Period::kHour, Hour(0)),
                                       *host::NumberOf(Period::kHour, Hour(last))});
  ledger.SetNow({2016, 9, 5, 0, 0, 0});
  return ledger;
}

// K7 questions in turn: '+' brings the record, '-' a reply without it, 'x' no reply.
void Go(ArchiveLedger& ledger, const std::string& replies) {
  unsigned char hour = 0;
  for (const char reply : replies) {
    ledger.Ask(Hour(hour));
    if (reply == '+') ledger.Receive(Hour(hour));
    if (reply == 'x') ledger.FailAsked("no reply");
    ++hour;
  }
  ledger.SettleAsked();
}

// "5 received, 3 absent, 1 failed: no reply".
std::string TextOf(const ArchiveLedger& ledger) {
  host::SectionAccount account;
  ledger.Tell(account);
  std::string text = std::to_string(account.received) + " received, " +
                     std::to_string(account.notHeld) + " absent, " +
                     std::to_string(account.failed) + " failed";
  CHECK(account.expected == account.received + account.notHeld + account.failed);
  return account.reason.empty() ? text : text + ": " + account.reason;
}

}  // namespace

TEST_CASE("a K7 reply without a record is believed where lost ones would be scattered") {
  const std::string day(24, '-');
  struct Case {
    const char* name;
    std::string first;   // replies of the reading
    std::string second;  // of the same hours asked for again, if they are
    TAVDT now;
    std::string text;
  };
  const Case cases[] = {
      {"one alone", "+-+", "", Hour(23),
       "2 received, 0 absent, 1 failed: the reply held no record"},
      {"one alone, twice", "+-+", "+-+", Hour(23),
       "2 received, 0 absent, 1 failed: the reply held no record"},
      {"filled the second time", "+-+", "-+-", Hour(23), "3 received, 0 absent, 0 failed"},
      {"three together", "---", "", Hour(23),
       "0 received, 0 absent, 3 failed: the reply held no record"},
      {"three together, twice", "+---", "+---", Hour(23), "1 received, 3 absent, 0 failed"},
      {"two and a lost one", "--x", "--x", Hour(23),
       "0 received, 0 absent, 3 failed: the reply held no record"},
      {"an hour that is not over",
       "+-",
       "",
       {2016, 9, 4, 1, 59, 59},
       "1 received, 1 absent, 0 failed"},
      {"an hour that is just over", "+-", "", Hour(2),
       "1 received, 0 absent, 1 failed: the reply held no record"},
      {"a day", day, "", {2016, 9, 5, 0, 0, 0}, "0 received, 24 absent, 0 failed"},
      {"never asked for", "+", "", Hour(23), "1 received, 0 absent, 1 failed: not asked for"},
  };
  for (const Case& item : cases) {
    INFO(item.name);
    const std::size_t last = item.first == "+" ? 1 : item.first.size() - 1;
    ArchiveLedger ledger = Hours(static_cast<unsigned char>(last));
    ledger.SetNow(item.now);
    Go(ledger, item.first);
    Go(ledger, item.second);
    CHECK(TextOf(ledger) == item.text);
  }
}

TEST_CASE("records that are told without a date are the next ones") {
  ArchiveLedger ledger = Hours(9);
  ledger.SetNow(Hour(5));
  ledger.Begin(*host::NumberOf(Period::kHour, Hour(0)));
  CHECK(ledger.Receive(Hour(0)));
  ledger.FailNext("no reply");
  ledger.SetNextNotHeld();
  ledger.RefuseNext("refused");
  CHECK(ledger.Receive(Hour(4)));
  ledger.FailNext("wrong checksum");
  ledger.RefuseNext("refused");  // ahead of the clock
  CHECK(TextOf(ledger) == "2 received, 2 absent, 6 failed: no reply");
  REQUIRE(ledger.Gaps().size() == 4);
  CHECK(ledger.Gaps()[3].last - ledger.Gaps()[3].first == 2);
  CHECK_FALSE(ledger.Receive(Hour(4)));   // again
  CHECK_FALSE(ledger.Receive(Hour(10)));  // not asked for
  CHECK_FALSE(ledger.Receive({2016, 2, 30, 0, 0, 0}));
  for (unsigned char hour = 0; hour < 10; ++hour) ledger.Receive(Hour(hour));
  CHECK(TextOf(ledger) == "10 received, 0 absent, 0 failed");
}

TEST_CASE("periods count the calendar") {
  CHECK(*host::NumberOf(Period::kDay, {2016, 3, 1, 5, 0, 0}) -
            *host::NumberOf(Period::kDay, {2016, 2, 28, 23, 0, 0}) ==
        2);
  // K7 tells the month of a record by its day 0.
  CHECK(host::NumberOf(Period::kMonth, {2016, 9, 0, 0, 0, 0}) ==
        host::NumberOf(Period::kMonth, {2016, 9, 30, 0, 0, 0}));
  for (const Period period : {Period::kHour, Period::kDay, Period::kMonth}) {
    const auto number = *host::NumberOf(period, {2016, 12, 31, 23, 0, 0});
    CHECK(host::NumberOf(period, host::StartOf(period, number + 1)) == number + 1);
    CHECK(host::StartOf(period, number + 1).year == 2017);
    CHECK_FALSE(host::NumberOf(period, {2016, 13, 1, 0, 0, 0}));
  }
}
