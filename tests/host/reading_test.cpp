// Whole readings: the driver, a simulated instrument, and a TCP line between them.
#include "host/reading/reading.h"

#include <doctest/doctest.h>

#include <atomic>
#include <functional>
#include <memory>

#include "host/line/open_line.h"
#include "host/reading/driver_library.h"
#include "simulator/simulator.h"
#include "tests/host/stream_writer.h"

using namespace host_test;

namespace {

// Calls what a test wants done at the first row.
class AtFirstRow final : public host::SectionListener {
 public:
  explicit AtFirstRow(std::function<void()> action) : action_(std::move(action)) {}
  void Begin(const host::Section&) override {}
  void AddRow(const host::Section&, host::ByteView) override {
    if (rows++ == 0) action_();
  }
  void End(const host::Section&) override {}

  int rows = 0;

 private:
  std::function<void()> action_;
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

  host::ReadingEnd Read(
      host::SectionListener& listener, bool (*interrupted)() = [] { return false; }) {
    host::Progress progress;
    host::Receiver receiver(listener, nullptr, progress, false);
    host::DriverPointer driver = library_.Create(receiver, *port);
    const host::ReadingEnd end =
        host::RunReading(*driver, settings, *port, receiver, progress, interrupted);
    driver.reset();
    CHECK(receiver.Finish() == 0);
    return end;
  }

  std::unique_ptr<simulator::Served> served;
  std::unique_ptr<host::LinePort> port;
  host::ReadSettings settings;

 private:
  host::DriverLibrary library_{""};
};

}  // namespace

TEST_CASE("a model 521 is read whole") {
  Bench bench;
  host::SectionKeeper kept;
  const host::ReadingEnd end = bench.Read(kept);
  CHECK(end.reason == "");
  CHECK(end.ending == host::Ending::kRead);
  std::string found;
  for (const host::KeptSection& section : kept.Sections()) {
    found += section.section.title.kind + std::to_string(section.rows.size()) + ' ';
    CHECK(section.section.title.model == "УРМ521");
    CHECK(section.section.columns.size() == section.section.announced);
    for (const Bytes& row : section.rows) CHECK(row.size() == host::RowWidth(section.section));
  }
  // The end day of the daily archive is not read, the end hour of the hourly one is.
  CHECK(found == "B1 O1 M1 D2 H50 ");
}

TEST_CASE("a reading that cannot go on says why and keeps its rows") {
  SUBCASE("the line is gone") {
    Bench bench;
    AtFirstRow rows([&] { bench.served.reset(); });
    const host::ReadingEnd end = bench.Read(rows);
    CHECK(end.ending == host::Ending::kFailed);
    CHECK(end.reason.find("the gateway closed the connection") != std::string::npos);
    CHECK(rows.rows > 0);
  }
  SUBCASE("nobody answers") {
    simulator::Settings instrument = Model521();
    instrument.number = 7;
    Bench bench(instrument);
    AtFirstRow rows([] {});
    const host::ReadingEnd end = bench.Read(rows);
    CHECK(end.ending == host::Ending::kFailed);
    CHECK(end.reason == "Error Version: Read 0 (no reply)");
  }
}

TEST_CASE("an interrupted reading ends") {
  static std::atomic<bool> interrupted;
  interrupted = false;
  Bench bench;
  bench.settings.follow = true;
  AtFirstRow rows([] { interrupted = true; });
  const host::ReadingEnd end = bench.Read(rows, [] { return interrupted.load(); });
  CHECK(end.ending == host::Ending::kInterrupted);
  CHECK(rows.rows > 0);
}

TEST_CASE("settings that the driver does not offer are wrong usage") {
  Bench bench;
  host::Progress progress;
  Told told;
  host::Receiver receiver(told, nullptr, progress, false);
  const host::DriverLibrary library("");
  const host::DriverPointer driver = library.Create(receiver, *bench.port);
  CHECK_NOTHROW(host::CheckSettings(*driver, bench.settings));
  for (const auto& spoil : {+[](host::ReadSettings& settings) { settings.baud = 9600; },
                            +[](host::ReadSettings& settings) { settings.groups = "TX"; },
                            +[](host::ReadSettings& settings) { settings.number = 256; }}) {
    host::ReadSettings settings = bench.settings;
    spoil(settings);
    CHECK_THROWS_AS(host::CheckSettings(*driver, settings), host::UsageError);
  }
}
