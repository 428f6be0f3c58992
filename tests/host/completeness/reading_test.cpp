// What a reading makes of several runs of the driver.
#include <doctest/doctest.h>

#include <algorithm>

#include "host/line/reconnecting.h"
#include "host/line/stream_line.h"
#include "host/reading/follow_labels.h"
#include "tests/host/completeness/simulated_reading.h"

using namespace completeness;

namespace {

// "DОВ 2/1/3": received, not held and failed.
std::string AccountsOf(const Outcome& outcome) {
  std::string text;
  for (const host::SectionAccount& account : outcome.end.accounts) {
    text += Rows::NameOf(account.kind, account.section) + ' ' + std::to_string(account.received) +
            '/' + std::to_string(account.notHeld) + '/' + std::to_string(account.failed) + ' ';
  }
  return text;
}

std::ptrdiff_t Told(const Outcome& outcome, const std::string& message) {
  const auto& all = outcome.rows.messages;
  return std::count_if(all.begin(), all.end(),
                       [&](const std::string& told) { return told.starts_with(message); });
}

// Who is expected, and what is known of the one that answers instead.
class Known final : public host::KnownRecords {
 public:
  Known(host::KnownInstrument expected, host::KnownInstrument other)
      : expected_(std::move(expected)), other_(std::move(other)) {}
  host::KnownInstrument ReadLast(const host::Run& /*run*/) override { return expected_; }
  host::KnownInstrument Of(const host::Title& title) override {
    other_.model = title.model;
    other_.serial = title.number;
    return other_;
  }

 private:
  host::KnownInstrument expected_;
  host::KnownInstrument other_;
};

// Hours of 4 September 2016.
host::KnownArchive Hours(const char* section, int first, int last,
                         std::vector<host::PeriodRange> kept = {}, int absent = -1) {
  constexpr host::PeriodNumber kMidnight = 17048 * 24;
  host::KnownArchive archive{
      tav::TitleKind::kHourly, section, {kMidnight + first, kMidnight + last}, {}, {}};
  for (const host::PeriodRange& range : kept) {
    archive.kept.push_back({kMidnight + range.first, kMidnight + range.last});
  }
  if (absent >= 0) archive.absent.push_back({kMidnight + absent, kMidnight + absent});
  return archive;
}

host::KnownArchive Days(const char* section, host::PeriodRange september) {
  return {
      tav::TitleKind::kDaily, section, {17044 + september.first, 17044 + september.last}, {}, {}};
}

}  // namespace

TEST_CASE("what earlier readings have left is read, and only that") {
  const std::string model = "УРМ523";
  const std::string serial = "12822465";
  const SYSTEMTIME from{2016, 9, 0, 4, 11, 0, 0, 0};
  const host::KnownInstrument gaps{
      model,
      serial,
      {Hours("ТВ1", 0, 12, {{0, 2}, {4, 12}}), Hours("ТВ2", 0, 12, {{0, 4}, {7, 12}}, 5)}};
  struct Case {
    const char* what;
    host::KnownInstrument expected;
    host::KnownInstrument other;
    int runs;
    const char* accounts;
    const char* first;  // row of ТВ1's hours
  };
  const Case cases[] = {
      {"two gaps apart",
       gaps,
       {},
       2,
       "DТВ1 0/0/0 HТВ1 1/0/0 DТВ2 0/0/0 HТВ2 1/0/0 ",
       "2016-09-04 03"},
      {"nothing", {model, serial, {Hours("ТВ1", 0, 1, {{0, 1}})}}, {}, 0, "HТВ1 0/0/0 ", ""},
      {"archives that begin and end together",
       {model,
        serial,
        {Days("ТВ1", {3, 3}), Days("ТВ2", {3, 3}), Hours("ТВ1", -5, 12), Hours("ТВ2", -5, 12)}},
       {},
       1,
       "DТВ1 1/0/0 HТВ1 18/0/0 DТВ2 1/0/0 HТВ2 18/0/0 ",
       "2016-09-03 19"},
      {"an archive that is not known yet",
       {model, serial, {Hours("ТВ1", 11, 12)}, from},
       {},
       1,
       "DТВ1 0/0/0 HТВ1 2/0/0 DТВ2 0/0/0 HТВ2 2/0/0 ",
       "2016-09-04 11"},
      {"another instrument",
       {"УРМ521", serial, {Hours("ОВ", 0, 12)}},
       gaps,
       3,
       "DТВ1 0/0/0 HТВ1 1/0/0 DТВ2 0/0/0 HТВ2 1/0/0 ",
       "2016-09-04 03"},
      {"nobody, and nothing is known of who answers",
       {"", "", {}, from},
       {"", "", {}, from},
       1,
       "DТВ1 0/0/0 HТВ1 2/0/0 DТВ2 0/0/0 HТВ2 2/0/0 ",
       "2016-09-04 11"},
  };
  for (const Case& item : cases) {
    INFO(std::string(item.what));
    host::ReadSettings asked = Asked("523", 1, 0);
    asked.to = {2016, 9, 0, 4, 12, 0, 0, 0};
    asked.groups = "SH";
    Known known(item.expected, item.other);
    const Outcome outcome = Read(asked, Instrument("523"), &known);
    CHECK(outcome.end.ending == host::Ending::kRead);
    CHECK(Told(outcome, "Opros End") == item.runs);
    CHECK(AccountsOf(outcome) == item.accounts);
    const auto hours = outcome.rows.all.find(Rows::NameOf(tav::TitleKind::kHourly, "ТВ1"));
    const bool any = hours != outcome.rows.all.end() && !hours->second.empty();
    CHECK(any == (*item.first != '\0'));
    if (any) CHECK(hours->second.front().starts_with(item.first));
  }
}

TEST_CASE("a day that ends a period is read whole, and what lies behind it is not") {
  for (const simulator::Choice& model : simulator::Models()) {
    INFO(std::string(model.name));
    simulator::Settings settings = Instrument(model.name);
    settings.clock = simulator::ClockTime{2016, 10, 2, 1, 0, 0};
    host::ReadSettings asked = Asked(model.name, 1, 1);
    asked.groups = "shm";
    const Outcome outcome = Read(asked, settings);
    INFO(AccountsOf(outcome));
    CHECK(outcome.end.ending == host::Ending::kRead);
    for (const auto& [section, rows] : outcome.rows.all) {
      INFO(section);
      CHECK(section[0] != 'B');
      REQUIRE(!rows.empty());
      const bool month = section[0] == 'M';
      CHECK(rows.size() == (section[0] == 'H' ? 28 : month ? 1 : 2));
      CHECK(rows.back().starts_with(month ? "2016-09" : "2016-09-04"));
    }
  }
}

TEST_CASE("what is missing is asked for again, and only that") {
  for (const char* model : {"521", "523", "k7-523"}) {
    INFO(std::string(model));
    host::ReadSettings asked = Asked(model, 1, 1);
    asked.to = {2016, 9, 0, 4, 12, 0, 0, 0};
    asked.groups = "H";
    const bool k7 = asked.kind == tav::Mode::kK7;
    // A K7 archive ends with the first lost reply: one for each heat system.
    const auto settings = Instrument(model, {{"frozen", 10, k7 ? 2 : 3}});
    const Outcome outcome = Read(asked, settings);
    INFO(AccountsOf(outcome));
    CHECK(outcome.end.ending == host::Ending::kRead);
    CHECK(Told(outcome, "Opros End") == 2);
    for (const auto& [section, rows] : outcome.rows.all) CHECK(rows.size() == 17);
    const Outcome once = [&] {
      asked.retryGaps = 0;
      return Read(asked, settings);
    }();
    CHECK(once.end.ending == host::Ending::kGaps);
    CHECK(Told(once, "Opros End") == 1);
    // Each heat system's hours once, and those that were missing in one of them in both.
    if (k7) CHECK(Told(outcome, "read...") == 8 + 1 + 2 * 17);
  }
}

TEST_CASE("a reading over a bad line comes to its end") {
  struct Case {
    const char* model;
    int every;  // reply is lost
    const char* accounts;
  };
  const Case cases[] = {{"521", 6, "HОВ 18/10/0 "},
                        {"k7-521", 7, "HОБЩ 17/11/0 "},
                        {"k7-523", 7, "HТВ1 17/11/0 HТВ2 17/11/0 "}};
  for (const Case& item : cases) {
    INFO(std::string(item.model));
    host::ReadSettings asked = Asked(item.model, 1, 1);
    asked.groups = "H";
    const Outcome outcome = Read(asked, Instrument(item.model, {{"no-reply", item.every}}));
    CHECK(AccountsOf(outcome) == item.accounts);
  }
}

namespace {

// A connection that the gateway closes after so many bytes; what the instrument had still to say
// comes over the next one.
class ShortConnection final : public host::Channel {
 public:
  ShortConnection(support::FakePort& port, std::size_t most) : port_(port), left_(most) {}
  host::Transfer Receive(std::span<char> into, Clock::time_point) override {
    if (left_ == 0) return {0, "closed"};
    const auto most = static_cast<unsigned>(std::min(into.size(), left_));
    const auto count = static_cast<std::size_t>(port_.Read(0, most, into.data()));
    left_ -= count;
    return {count, {}};
  }
  host::Transfer Send(std::span<const char> bytes, Clock::time_point) override {
    port_.Write(bytes.data(), static_cast<unsigned>(bytes.size()));
    return {bytes.size(), {}};
  }

 private:
  support::FakePort& port_;
  std::size_t left_;
};

}  // namespace

TEST_CASE("a reading whose gateway closes the connection again and again is whole") {
  struct Case {
    const char* model;
    std::size_t bytes;  // of a connection: more than the longest reply has
  };
  for (const Case& item : {Case{"521", 700}, Case{"523", 4999}, Case{"k7-523", 1999}}) {
    INFO(std::string(item.model));
    const host::ReadSettings asked = Asked(item.model, 3, 1);
    SimulatedPort instrument(Instrument(item.model));
    int closed = 0;
    const auto open = [&] {
      return std::make_unique<ShortConnection>(instrument.port, item.bytes);
    };
    host::StreamLine line(
        "g:1", std::make_unique<host::Reconnecting>(open, [&](const std::string&) { ++closed; }));
    const Outcome outcome = ReadOver(line, asked);
    CHECK(closed > 0);
    CHECK(outcome.end.ending == host::Ending::kRead);
    CHECK(outcome.rows.all == Read(asked, Instrument(item.model)).rows.all);
  }
}

TEST_CASE("continuous reading names the part that a row belongs to") {
  for (const char* model : {"521", "522", "523", "721"}) {
    for (const int idle : {0, 1}) {
      if (idle > 0 && model[0] == '5' && model[2] == '1') continue;  // it has one system only
      INFO(std::string(model), " idle ", idle);
      simulator::Settings settings = Instrument(model);
      settings.special.idleSystem = idle;
      host::ReadSettings asked = Asked(model, 1, 0);
      asked.groups = "TS";
      asked.follow = true;
      // The hours of the reading end before the clock, so that the cycles bring more of them.
      asked.to = {2016, 9, 0, 4, 10, 0, 0, 0};
      Rows rows;
      SimulatedPort line(settings);
      host::RunReading(host::DriverLibrary(""), {asked, "", {}}, line, rows, [] {
        static int asks = 0;
        return ++asks % 4 == 0 ? host::StopRequest::kDone : host::StopRequest::kNone;
      });
      for (const auto& [section, texts] : rows.all) {
        INFO(section);
        const std::string part = section.substr(1);
        CHECK(section[0] != 'H');
        const bool two = model != std::string("521") && model != std::string("721");
        CHECK((two ? part == "ТВ1" || part == "ТВ2" : part == "ОВ"));
        if (idle > 0 && two) CHECK(part == "ТВ2");
      }
    }
  }
}

TEST_CASE("a heat system whose values are lost has its turn all the same") {
  host::FollowLabels labels(tav::Mode::kOlder);
  labels.Tell({"523-0", "Th", 0});
  for (int cycle = 0; cycle < 2; ++cycle) {
    labels.Tell({"reading...", "Nonstop", 0});
    labels.Tell({"12", "Tek", 0});
    host::Title current{.kind = tav::TitleKind::kCurrent};
    labels.Correct(current);
    CHECK(current.section == "ТВ2");
    host::Title hours{.kind = tav::TitleKind::kHourly, .section = "ТВ1"};
    labels.Correct(hours);
    CHECK(hours.section == "ТВ2");
  }
}
