// Scans of simulated lines that take no time.
#include "host/reading/scan.h"

#include <doctest/doctest.h>

#include <utility>

#include "host/output/scan_list.h"
#include "simulator/catalogue/catalogue.h"
#include "tests/host/completeness/simulated_reading.h"
#include "tests/support/fake_clock.h"

namespace {

using completeness::SimulatedPort;
using tav::Mode;

enum class Spoilt { kNot, kWrongSpeed, kLate };

// What comes over it is what a line of 9600 bit/s brings at another speed, or is late.
class SpoiltLine final : public host::WrappedLine {
 public:
  SpoiltLine(std::unique_ptr<host::LinePort> line, Spoilt how)
      : WrappedLine(std::move(line)), how_(how) {}

  bool SetLine(int one, int zero, int baud, int bits, int parity, int stop) override {
    garbled_ = how_ == Spoilt::kWrongSpeed && baud != 9600;
    return WrappedLine::SetLine(one, zero, baud, bits, parity, stop);
  }
  int Read(unsigned timeoutMs, unsigned count, void* destination) override {
    const int taken = WrappedLine::Read(timeoutMs, count, destination);
    const std::span bytes(static_cast<char*>(destination), static_cast<std::size_t>(taken));
    if (how_ == Spoilt::kLate) held_.append(bytes.data(), bytes.size());
    if (how_ == Spoilt::kLate) return 0;
    for (char& byte : bytes) byte = static_cast<char>(garbled_ ? byte ^ 0x5A : byte);
    return taken;
  }
  int Write(const void* data, unsigned length) override {
    dropped_ = std::exchange(held_, {});
    return WrappedLine::Write(data, length);
  }
  std::string_view Dropped() const override { return dropped_; }

 private:
  Spoilt how_;
  bool garbled_ = false;
  std::string held_;
  std::string dropped_;
};

// A line on which a longer silence ends a request, as on a real one.
std::unique_ptr<host::LinePort> LineTo(const simulator::Settings& settings) {
  auto line = std::make_unique<SimulatedPort>(settings);
  const std::shared_ptr<simulator::Instrument> all =
      simulator::MakeInstrument(settings, [] { return simulator::ClockTime{}; });
  line->port.answer = [all](const support::Bytes& written) {
    support::Bytes bytes;
    for (const simulator::Exchange& exchange : all->Receive(written)) {
      for (const simulator::Part& part : exchange.reply) {
        bytes.insert(bytes.end(), part.bytes.begin(), part.bytes.end());
      }
    }
    return bytes;
  };
  constexpr unsigned kIdle = 450;  // ms
  support::clock::OnPause([all](unsigned ms) {
    if (ms >= kIdle) all->Idle();
  });
  return line;
}

simulator::Settings Line(const simulator::Neighbour& first,
                         const std::vector<simulator::Neighbour>& others,
                         const std::vector<simulator::Fault>& faults = {}) {
  simulator::Settings settings = completeness::Instrument(first.model, faults);
  settings.number = first.number;
  settings.neighbours = others;
  return settings;
}

std::string TextOf(const host::ScanAnswer& answer) {
  constexpr const char* kKinds[] = {"silent", "broken", "answers"};
  std::string text = std::to_string(answer.number) + ' ';
  text += kKinds[static_cast<std::size_t>(answer.kind)];
  if (answer.kind == host::ScanAnswer::Kind::kSilent) return text + '\n';
  text += ' ' + std::string(host::KindName(answer.way.kind)) + ' ';
  text += std::to_string(answer.way.baud) + ' ' + answer.model;
  text += answer.serial.empty() ? "" : " with a number";
  if (answer.clock) text += " and a clock";
  return text + (answer.reason.empty() ? "" : ": ") + answer.reason + '\n';
}

// Stops once so many numbers were asked.
class Until final : public host::ScanListener {
 public:
  explicit Until(int most) : left_(most) {}
  void TakeAnswer(const host::ScanAnswer&) override { --left_; }
  bool Reached() const { return left_ <= 0; }

 private:
  int left_;
};

std::vector<host::ScanAnswer> Scan(const simulator::Settings& settings, const host::ScanPlan& plan,
                                   Spoilt how = Spoilt::kNot, int most = 1000) {
  support::clock::Reset();
  host::CountingLine line(std::make_unique<SpoiltLine>(LineTo(settings), how));
  host::RunListener deaf;
  Until until(most);
  const auto askStop = [&] {
    return until.Reached() ? host::StopRequest::kInterrupted : host::StopRequest::kNone;
  };
  auto answers = host::ScanLine(host::DriverLibrary(""), plan, {line, deaf, askStop}, until);
  support::clock::Reset();
  return answers;
}

std::string TextOf(const std::vector<host::ScanAnswer>& answers) {
  std::string text;
  for (const host::ScanAnswer& answer : answers) text += TextOf(answer);
  return text;
}

constexpr host::Way kOlder{Mode::kOlder, 2400};
constexpr host::Way kK7{Mode::kK7, 2400};
constexpr host::Way kFastK7{Mode::kK7, 9600};

}  // namespace

TEST_CASE("a scan tells answers, broken answers and silence apart") {
  struct Case {
    const char* name;
    simulator::Settings line;
    host::ScanPlan plan;
    Spoilt how;
    const char* answers;
  };
  const simulator::Settings mixed = Line({"521", 1}, {{"k7-523", 3}, {"522", 4}});
  const Case cases[] = {
      {"both kinds",
       mixed,
       {{1, 2, 3, 4, 5}, {kOlder, kK7}},
       Spoilt::kNot,
       "1 answers older 2400 УРМ521 with a number and a clock\n2 silent\n"
       "3 answers k7 2400 УРМ523 with a number and a clock\n"
       "4 answers older 2400 УРМ522 with a number and a clock\n5 silent\n"},
      {"another speed first",
       Line({"k7-521", 7}, {{"k7-523", 9}}),
       {{7}, {kK7, kFastK7}},
       Spoilt::kWrongSpeed,
       "7 answers k7 9600 УРМ521 with a number and a clock\n"},
      {"a wrong speed alone",
       Line({"k7-521", 7}, {{"k7-523", 9}}),
       {{7, 8}, {kK7}},
       Spoilt::kWrongSpeed,
       "7 broken k7 2400 : the reply was damaged or cut short\n8 silent\n"},
      {"two of the older kind with one number",
       Line({"521", 2}, {{"522", 2}}),
       {{1, 2}, {kOlder}},
       Spoilt::kNot,
       "1 silent\n2 broken older 2400 : the reply has another number\n"},
      {"two of k7 with one number",
       Line({"k7-521", 2}, {{"k7-521", 2}}),
       {{2, 3}, {kK7}},
       Spoilt::kNot,
       "2 broken k7 2400 : the reply was damaged or cut short\n3 silent\n"},
      {"a reply that is cut",
       Line({"521", 1}, {{"522", 2}}, {{"cut-reply"}}),
       {{1, 2}, {kOlder}},
       Spoilt::kNot,
       "1 broken older 2400 : the reply was cut short\n"
       "2 answers older 2400 УРМ522 with a number and a clock\n"},
      {"a clock that does not come",
       Line({"521", 1}, {{"522", 2}}, {{"no-reply", 2}}),
       {{1}, {kOlder}},
       Spoilt::kNot,
       "1 broken older 2400 УРМ521: no reply\n"},
      {"replies behind their time limit",
       Line({"521", 1}, {{"522", 9}}),
       {{1, 2, 3}, {kOlder}},
       Spoilt::kLate,
       "1 broken older 2400 : bytes came only when nobody waited for them any more\n"
       "2 silent\n3 silent\n"},
  };
  for (const Case& item : cases) {
    CAPTURE(item.name);
    CHECK(TextOf(Scan(item.line, item.plan, item.how)) == item.answers);
  }
}

TEST_CASE("an interrupted scan keeps what was found") {
  const auto line = Line({"521", 2}, {{"522", 4}});
  const auto answers = Scan(line, {{1, 2, 3, 4, 5}, {kOlder, kK7}}, Spoilt::kNot, 3);
  CHECK(TextOf(answers) ==
        "1 silent\n2 answers older 2400 УРМ521 with a number and a clock\n3 silent\n");
  CHECK(host::ScanSummary(answers) == "1 number answers, 0 answers are broken, 2 are silent");
}

TEST_CASE("a scan is shown as a table and as JSON") {
  host::ScanAnswer found{7, host::ScanAnswer::Kind::kAnswers, kK7, "УРМ523", "V3", "15", {}, {}};
  found.clock = {{2016, 9, 0, 4, 13, 5, 9, 0}, {2016, 9, 0, 4, 13, 8, 9, 0}, -180, true};
  host::ScanAnswer broken{9, host::ScanAnswer::Kind::kBroken, kOlder};
  broken.reason = "no";
  const std::vector<host::ScanAnswer> answers = {{5}, {6}, found, {8}, broken};
  CHECK(host::ScanText(answers) ==
        "number  kind  bit/s  model   version  serial  clock                difference\n"
        "7       k7    2400   УРМ523  V3       15      2016-09-04 13:05:09  3 min behind\n"
        "number 9: a broken answer (older, 2400 bit/s): no\n"
        "silent: 5-6, 8\n"
        "what breaks an answer: two instruments with one number, another speed, noise, a slow "
        "gateway\n");
  CHECK(host::ScanJson({found, {8}}) ==
        R"([
{"number":7,"answer":"answers","kind":"k7","speed":2400,"model":"УРМ523","version":"V3","serial":"15","clock":"2016-09-04 13:05:09","machine_clock":"2016-09-04 13:08:09","clock_difference":-180,"reason":null},
{"number":8,"answer":"silent","kind":null,"speed":null,"model":null,"version":null,"serial":null,"clock":null,"machine_clock":null,"clock_difference":null,"reason":null}
]
)");
}
