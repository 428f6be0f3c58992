#include "tests/records/readings.h"

#include <memory>
#include <stdexcept>
#include <utility>

#include "simulator/catalogue/catalogue.h"
#include "tests/support/reading.h"

namespace records {
namespace {

constexpr simulator::ClockTime kNow{2016, 9, 4, 13, 5, 9};

// A complaint of the instrument ends the program: what follows would be no contract.
void Connect(support::FakePort& port, simulator::Settings settings) {
  settings.clock = kNow;
  settings.report = [](const std::string& sentence) { throw std::runtime_error(sentence); };
  const std::shared_ptr<simulator::Instrument> instrument =
      simulator::MakeInstrument(settings, simulator::ClockOf(settings));
  port.answer = [instrument](const support::Bytes& written) {
    support::Bytes reply;
    for (const simulator::Exchange& exchange : instrument->Receive(written)) {
      for (const simulator::Part& part : exchange.reply)
        reply = support::operator+(reply, part.bytes);
    }
    return reply;
  };
}

}  // namespace

Writes Batch(const simulator::Settings& settings, tav::Mode mode) {
  support::Reading reading;
  Connect(reading.port, settings);
  reading.driver.SetupDateTime({2016, 8, 0, 25, 22, 10}, {2016, 9, 0, 2, 1, 20});
  reading.Groups("BTMSHE");
  reading.Run(static_cast<int>(mode));
  return reading.stream.writes;
}

Writes ContinuousCycle(const simulator::Settings& settings) {
  support::Reading reading;
  Connect(reading.port, settings);
  reading.driver.SetupDateTime({2016, 9, 0, 4, 11}, {2016, 9, 0, 4, 12});
  reading.Groups("H");
  reading.Parameter(static_cast<int>(tav::Parameter::kContinuous), 1);
  std::vector<Writes> parts;  // the batch, the first cycle
  reading.stream.onMessage = [&](const std::string& line) {
    if (line != "reading... / Nonstop") return;
    parts.push_back(std::exchange(reading.stream.writes, {}));
    if (parts.size() == 2) reading.driver.Stop();
  };
  reading.Run(static_cast<int>(tav::Mode::kOlder));
  return parts.at(1);
}

std::string Utf8(const std::string& text) {
  std::string utf8;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      utf8 += c;
      continue;
    }
    if (byte < 0xC0) throw std::out_of_range("neither ASCII nor a Russian letter: " + text);
    const unsigned point = byte + 0x350U;
    utf8 += {static_cast<char>(0xC0 | point >> 6), static_cast<char>(0x80 | (point & 0x3F))};
  }
  return utf8;
}

}  // namespace records
