// Whole readings: the driver, a simulated instrument, and a TCP line between them.
#include "host/reading/reading.h"

#include <doctest/doctest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <stdexcept>

#include "host/line/open_line.h"
#include "host/reading/driver_set_up.h"
#include "simulator/simulator.h"

namespace {

// Kinds of sections and their rows, "B1 O1 "; calls what a test wants done at a row, from the
// first.
class Counts final : public host::RunListener {
 public:
  explicit Counts(int row = 0, std::function<void()> action = {})
      : row_(row), action_(std::move(action)) {}
  void BeginSection(const host::Section& section) override {
    text += static_cast<char>(section.title.kind);
    rows_ = 0;
    CHECK(section.title.model == "УРМ521");
    CHECK(section.columns.size() == section.announced);
  }
  void AddRow(const host::Section& section, const host::Cells& cells) override {
    ++rows_;
    CHECK(cells.size() == section.columns.size());
    CHECK(!std::holds_alternative<std::monostate>(cells.back()));
    if (++all == row_) action_();
  }
  void EndSection(const host::Section&) override { text += std::to_string(rows_) + ' '; }

  int all = 0;
  std::string text;

 private:
  int row_;
  std::function<void()> action_;
  int rows_ = 0;
};

SYSTEMTIME Moment(unsigned short day, unsigned short hour) {
  SYSTEMTIME time{};
  time.wYear = 2016;
  time.wMonth = 9;
  time.wDay = day;
  time.wHour = hour;
  return time;
}

simulator::Settings Model521() {
  simulator::Settings settings;
  settings.clock = simulator::ClockTime{};
  return settings;
}

// A simulated model 521 that is read through a TCP line.
class Bench {
 public:
  Bench() {
    settings.from = Moment(2, 0);
    settings.to = Moment(4, 1);
    settings.attempts = 1;
  }

  host::RunEnd Read(
      host::RunListener& listener,
      const host::AskStop& askStop = [] { return host::StopRequest::kNone; }) {
    host::RunEnd end = host::RunReading(library_, {settings, "", {}}, *line_, listener, askStop);
    CHECK(end.counts.ignored == 0);
    return end;
  }

  std::unique_ptr<simulator::Served> served = simulator::ServeTcp(Model521(), 0);
  host::ReadSettings settings;

 private:
  host::DriverLibrary library_{""};
  std::unique_ptr<host::LinePort> line_ = host::OpenLine("tcp:" + served->Address());
};

}  // namespace

TEST_CASE("a model 521 is read whole") {
  Bench bench;
  Counts counts;
  const host::RunEnd end = bench.Read(counts);
  CHECK(end.reason == "");
  CHECK(end.ending == host::Ending::kRead);
  CHECK(end.counts.rows == 55);
  // The end day of the daily archive is not read, the end hour of the hourly one is.
  CHECK(counts.text == "B1 O1 M1 D2 H50 ");
}

TEST_CASE("a reading that cannot go on says why and keeps its rows") {
  Bench bench;
  std::string reason;
  int rows = 1;
  std::function<void()> spoil;
  SUBCASE("the line is gone") {
    reason = "cannot connect to " + bench.served->Address();
    bench.settings.patience = std::chrono::seconds(2);
    spoil = [&] { bench.served.reset(); };
  }
  SUBCASE("rows can't be kept") {
    reason = "no space left";
    spoil = [] { throw std::runtime_error("no space left"); };
  }
  SUBCASE("nobody answers") {
    reason = "the instrument could not be identified: no reply";
    bench.settings.number = 7;
    rows = 0;
  }
  Counts counts(1, spoil);
  const host::RunEnd end = bench.Read(counts);
  CHECK(end.ending == host::Ending::kFailed);
  CAPTURE(end.reason);
  CHECK(end.reason.find(reason) != std::string::npos);
  CHECK(counts.all >= rows);
}

TEST_CASE("a continuous reading goes on until it is interrupted") {
  std::atomic<host::StopRequest> stop = host::StopRequest::kNone;
  Bench bench;
  bench.settings.follow = true;
  bench.settings.groups = static_cast<char>(tav::ReadGroup::kCurrent);
  Counts counts(3, [&] { stop = host::StopRequest::kInterrupted; });
  const host::RunEnd end = bench.Read(counts, [&] { return stop.load(); });
  CHECK(end.ending == host::Ending::kInterrupted);
  CHECK(counts.all >= 3);
}

TEST_CASE("a driver that does not obey a stop has its thread ended") {
  for (const auto kind : {tav::Mode::kOlder, tav::Mode::kK7}) {
    Bench bench;
    bench.settings.kind = kind;
    bench.settings.number = 7;  // nobody
    bench.settings.attempts = 1000;
    int asked = 0;
    Counts counts;
    const host::RunEnd end = bench.Read(counts, [&] {
      return ++asked > 5 ? host::StopRequest::kInterrupted : host::StopRequest::kNone;
    });
    CHECK(end.ending == host::Ending::kInterrupted);
  }
}

TEST_CASE("logs of a k7 instrument are read with its database") {
  const std::pair<const char*, bool> cases[] = {
      {"E", true}, {"TE", true}, {"BE", false}, {"", false}};
  for (const auto& [groups, unread] : cases) {
    host::ReadSettings settings;
    settings.groups = groups;
    CHECK(host::UnreadGroups(settings).empty());
    settings.kind = tav::Mode::kK7;
    CHECK(host::UnreadGroups(settings).empty() != unread);
  }
}

TEST_CASE("settings that the driver does not offer are wrong usage") {
  const host::DriverLibrary library("");
  CHECK_NOTHROW(host::CheckSettings(library, {}));
  for (const auto& spoil : {+[](host::ReadSettings& settings) { settings.baud = 9600; },
                            +[](host::ReadSettings& settings) { settings.groups = "TX"; },
                            +[](host::ReadSettings& settings) { settings.number = 256; }}) {
    host::ReadSettings settings;
    spoil(settings);
    CHECK_THROWS_AS(host::CheckSettings(library, settings), host::UsageError);
  }
}
