#include "tests/support/simulated_line.h"

#include <doctest/doctest.h>

#include "simulator/catalogue/catalogue.h"

namespace support {

void Connect(FakePort& port, simulator::Settings settings) {
  settings.clock = settings.clock.value_or(kTestTime);
  settings.report = [](const std::string& complaint) { FAIL_CHECK(complaint); };
  const std::shared_ptr<simulator::Instrument> instrument =
      simulator::MakeInstrument(settings, simulator::ClockOf(settings));
  port.answer = [instrument, &port](const Bytes& written) {
    Bytes atOnce;
    for (const simulator::Exchange& exchange : instrument->Receive(written)) {
      for (const simulator::Part& part : exchange.reply) {
        if (part.silence.count() == 0 && port.later.empty()) {
          atOnce = atOnce + part.bytes;
        } else if (part.silence.count() == 0) {
          port.later.back() = port.later.back() + part.bytes;
        } else {
          port.later.push_back(part.bytes);
        }
      }
    }
    return atOnce;
  };
}

}  // namespace support
