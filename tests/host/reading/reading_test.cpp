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

// Calls what a test wants done at a row, from the first on.
class AtRow final : public host::RunListener {
 public:
  AtRow(int row, std::function<void()> action) : row_(row), action_(std::move(action)) {}
  void AddRow(const host::Section&, const host::Cells&) override {
    if (++rows == row_) action_();
  }

  int rows = 0;

 private:
  int row_;
  std::function<void()> action_;
};

// "B1 O1": kinds of sections and their rows.
class Counts final : public host::RunListener {
 public:
  void BeginRun(const host::Run& run) override { CHECK(run.line == "tcp:bench"); }
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
  }
  void EndSection(const host::Section&) override { text += std::to_string(rows_) + ' '; }
  void ShowProgress(const host::Progress&) override { shown = true; }
  void EndRun(const host::RunEnd&) override { text += "end"; }

  std::string text;
  bool shown = false;

 private:
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
  explicit Bench(const simulator::Settings& instrument = Model521())
      : served(simulator::ServeTcp(instrument, 0)),
        port(host::OpenLine("tcp:" + served->Address())) {
    settings.from = Moment(2, 0);
    settings.to = Moment(4, 1);
    settings.attempts = 1;
  }

  host::RunEnd Read(
      host::RunListener& listener, bool (*interrupted)() = [] { return false; }) {
    const host::RunEnd end =
        host::RunReading(library, {settings, "tcp:bench", {}}, *port, listener, interrupted);
    CHECK(end.counts.ignored == 0);
    return end;
  }

  host::DriverLibrary library{""};
  std::unique_ptr<simulator::Served> served;
  std::unique_ptr<host::LinePort> port;
  host::ReadSettings settings;
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
  CHECK(counts.text == "B1 O1 M1 D2 H50 end");
  CHECK(counts.shown);
}

TEST_CASE("a reading that cannot go on says why and keeps its rows") {
  SUBCASE("the line is gone") {
    Bench bench;
    AtRow rows(1, [&] { bench.served.reset(); });
    const host::RunEnd end = bench.Read(rows);
    CHECK(end.ending == host::Ending::kFailed);
    CHECK(end.reason.find("the gateway closed the connection") != std::string::npos);
    CHECK(rows.rows > 0);
  }
  SUBCASE("rows can't be kept") {
    Bench bench;
    AtRow rows(2, [] { throw std::runtime_error("no space left"); });
    const host::RunEnd end = bench.Read(rows);
    CHECK(end.ending == host::Ending::kFailed);
    CHECK(end.reason == "no space left");
    CHECK(rows.rows == 2);
  }
  SUBCASE("nobody answers") {
    simulator::Settings instrument = Model521();
    instrument.number = 7;
    Bench bench(instrument);
    AtRow rows(1, [] {});
    const host::RunEnd end = bench.Read(rows);
    CHECK(end.ending == host::Ending::kFailed);
    CHECK(end.reason == "Error Version: Read 0 (no reply)");
  }
}

TEST_CASE("a continuous reading goes on until it is interrupted") {
  static std::atomic<bool> interrupted;
  interrupted = false;
  Bench bench;
  bench.settings.follow = true;
  bench.settings.groups = static_cast<char>(tav::ReadGroup::kCurrent);
  AtRow rows(3, [] { interrupted = true; });
  const host::RunEnd end = bench.Read(rows, [] { return interrupted.load(); });
  CHECK(end.ending == host::Ending::kInterrupted);
  CHECK(rows.rows >= 3);
}

TEST_CASE("settings that the driver does not offer are wrong usage") {
  Bench bench;
  CHECK_NOTHROW(host::CheckSettings(bench.library, bench.settings));
  for (const auto& spoil : {+[](host::ReadSettings& settings) { settings.baud = 9600; },
                            +[](host::ReadSettings& settings) { settings.groups = "TX"; },
                            +[](host::ReadSettings& settings) { settings.number = 256; }}) {
    host::ReadSettings settings = bench.settings;
    spoil(settings);
    CHECK_THROWS_AS(host::CheckSettings(bench.library, settings), host::UsageError);
  }
}
