// Readings of simulated instruments as the program makes them, on a line that takes no time.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/line/line_port.h"
#include "host/reading/reading.h"
#include "tests/support/simulated_line.h"

namespace completeness {

class SimulatedPort final : public host::LinePort {
 public:
  explicit SimulatedPort(const simulator::Settings& settings) { support::Connect(port, settings); }

  bool Control(int code) override { return port.Control(code); }
  bool SetTimeouts(unsigned a, unsigned b, unsigned c, unsigned d, unsigned e) override {
    return port.SetTimeouts(a, b, c, d, e);
  }
  bool SetLine(int a, int b, int baud, int dataBits, int parity, int stopBits) override {
    return port.SetLine(a, b, baud, dataBits, parity, stopBits);
  }
  bool SetBuffers(int input, int output) override { return port.SetBuffers(input, output); }
  int Read(unsigned timeout, unsigned count, void* destination) override {
    return port.Read(timeout, count, destination);
  }
  // As every line of the program, which drops what came too late.
  int Write(const void* data, unsigned length) override {
    dropped_.assign(port.received.begin(), port.received.end());
    port.received.clear();
    port.later.clear();
    return port.Write(data, length);
  }
  bool Lost() const override { return false; }
  std::string Trouble() const override { return {}; }
  std::string_view Dropped() const override { return dropped_; }

  support::FakePort port;

 private:
  std::string dropped_;
};

// The rows of each section as texts, in the order in which they came.
class Rows final : public host::RunListener {
 public:
  static std::string NameOf(tav::TitleKind kind, const std::string& section) {
    return static_cast<char>(kind) + section;
  }
  void BeginSection(const host::Section& section) override {
    all[NameOf(section.title.kind, section.title.section)];
  }
  void AddRow(const host::Section& section, const host::Cells& cells) override {
    std::string row;
    for (const host::Cell& cell : cells) row += host::CellText(cell) + '|';
    all[NameOf(section.title.kind, section.title.section)].push_back(row);
  }
  void Tell(const host::Message& message) override { messages.push_back(host::Describe(message)); }

  std::map<std::string, std::vector<std::string>> all;
  std::vector<std::string> messages;
};

struct Outcome {
  Rows rows;
  host::RunEnd end;
};

// 3 September, 20:00, to the end of the 4th; the instrument's clock stands at 13:05 on the 4th.
host::ReadSettings Asked(const std::string& model, int attempts, int retryGaps);

Outcome Read(const host::ReadSettings& asked, const simulator::Settings& settings,
             host::KnownRecords* known = nullptr);

// The same over any line.
Outcome ReadOver(host::LinePort& line, const host::ReadSettings& asked,
                 host::KnownRecords* known = nullptr);

simulator::Settings Instrument(const std::string& model, std::vector<simulator::Fault> faults = {});

}  // namespace completeness
