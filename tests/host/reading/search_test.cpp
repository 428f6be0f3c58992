// Finding an instrument, and not waiting for one without an end.
#include "host/reading/search.h"

#include <doctest/doctest.h>

#include "host/line/open_line.h"
#include "host/line/wrapped_line.h"
#include "host/reading/patience.h"

namespace {

// Carries bytes at one speed only.
class OneSpeedLine final : public host::WrappedLine {
 public:
  OneSpeedLine(std::unique_ptr<host::LinePort> line, int speed)
      : WrappedLine(std::move(line)), speed_(speed) {}
  bool SetLine(int one, int zero, int baud, int dataBits, int parity, int stopBits) override {
    right_ = baud == speed_;
    return WrappedLine::SetLine(one, zero, baud, dataBits, parity, stopBits);
  }
  int Write(const void* data, unsigned length) override {
    return right_ ? WrappedLine::Write(data, length) : static_cast<int>(length);
  }

 private:
  int speed_;
  bool right_ = false;
};

host::StopRequest GoOn() { return host::StopRequest::kNone; }

}  // namespace

TEST_CASE("an instrument is found by its kind and its speed") {
  struct Case {
    const char* model;
    int speed;      // of the line
    bool anySpeed;  // is tried
    int number;
    const char* found;  // "" : nobody
  };
  const Case cases[] = {{"521", 2400, false, 1, "older 2400 УРМ521"},
                        {"k7-523", 2400, false, 1, "k7 2400 УРМ523"},
                        {"k7-521", 9600, true, 1, "k7 9600 УРМ521"},
                        {"k7-521", 9600, false, 1, ""},
                        {"721", 2400, true, 2, ""}};
  const host::DriverLibrary library("");
  for (const Case& item : cases) {
    CAPTURE(item.model);
    simulator::Settings simulated;
    simulated.model = item.model;
    const auto served = simulator::ServeTcp(simulated, 0);
    OneSpeedLine line(host::OpenLine("tcp:" + served->Address()), item.speed);
    host::ReadSettings settings;
    settings.number = item.number;
    settings.attempts = 1;
    host::RunListener deaf;
    const auto ways = host::WaysToTry(library, settings, {true, item.anySpeed});
    const auto found = host::FindInstrument(library, settings, ways, line, deaf, GoOn);
    std::string text;
    if (found) {
      text = host::KindName(found->way.kind);
      text += ' ' + std::to_string(found->way.baud) + ' ' + found->model;
    }
    CHECK(text == item.found);
  }
}

TEST_CASE("a speed that no kind has is wrong usage, one that one kind has leaves that kind") {
  const host::DriverLibrary library("");
  host::ReadSettings settings;
  settings.baud = 9600;
  const auto ways = host::WaysToTry(library, settings, {true, false});
  REQUIRE(ways.size() == 1);
  CHECK(ways[0].kind == tav::Mode::kK7);
  settings.baud = 0;
  CHECK_THROWS_WITH_AS(host::WaysToTry(library, settings, {true, false}),
                       "--speed 0: the older kind offers 2400, k7 offers 2400, 4800, 9600, 19200",
                       host::UsageError);
}

TEST_CASE("patience ends when nothing gets on") {
  struct Case {
    const char* name;
    host::Message message;
    std::size_t bytes;  // that have come when it is told, after 100 s
    int alive;          // s for which the run lives
  };
  const Case cases[] = {
      {"a silent line", {"1 Error: 12", "PoitkaArh"}, 0, 120},
      {"dates without replies", {"04.09.2016:13", "Date:hour"}, 0, 120},
      {"a good reply", {"04.09.2016:13", "Date:hour"}, 24, 220},
      {"noise", {"1 Error: 17", "PoitkaArh"}, 24, 120},
      {"a query that is repeated", {"i=1 count=3", "warning query"}, 24, 120},
      {"a long reply on its way", {"", ""}, 40000, 120 + 183},
      {"noise without an end", {"", ""}, 4000000, 120 + 300},
  };
  for (const Case& item : cases) {
    CAPTURE(item.name);
    const host::Patience::Clock::time_point begin;
    const auto at = [&](int second) { return begin + std::chrono::seconds(second); };
    host::Patience patience({}, begin);
    host::RunListener deaf;
    host::PatientListener listener(deaf, patience);
    if (!item.message.subject.empty()) listener.Tell(item.message);
    CHECK(!patience.IsOver(item.bytes, at(100)));
    CHECK(!patience.IsOver(item.bytes, at(item.alive)));
    CHECK(patience.IsOver(item.bytes, at(item.alive + 1)));
  }
}
