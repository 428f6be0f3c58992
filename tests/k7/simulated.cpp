#include "tests/k7/simulated.h"

namespace k7test {

simulator::Settings Instrument(const char* model, std::vector<simulator::Fault> faults) {
  simulator::Settings settings;
  settings.model = model;
  settings.faults = std::move(faults);
  settings.special.unitsCode = 1;
  return settings;
}

Bytes Reply(const Frame& request, int command, const Bytes& data) {
  return simulator::k7::Build({request.isLong, request.address, request.sequence,
                               static_cast<std::uint8_t>(command), data});
}

std::string RangeOf(const Frame& request) {
  const Bytes& data = request.data;
  return std::to_string(data.at(2)) + ':' + std::to_string(data.at(3) + 256 * data.at(4)) + '+' +
         std::to_string(data.size() / 5);
}

Reading::Reading(const simulator::Settings& settings, const char* groups) : values(settings) {
  Connect(port, settings);
  driver.SetupDateTime({2016, 8, 0, 30, 22, 17, 5, 9}, {2016, 9, 0, 2, 3, 30, 40, 0});
  Groups(groups);
  port.answer = [this, usual = port.answer](const Bytes& written) {
    Bytes reply = usual(written);
    if (const auto request = simulator::k7::Parse(written)) {
      requests.push_back(*request);
      if (onReply) onReply(*request, reply);
    }
    return reply;
  };
}

std::string Reading::Run() {
  support::Reading::Run(2);
  return stream.messages.at(stream.messages.size() - 2);
}

std::string Reading::Titles() const {
  std::string titles;
  for (const support::Section& section : Sections()) {
    titles += (titles.empty() ? "" : ", ") + std::string(1, section.kind) + ' ' + section.title;
  }
  return titles;
}

}  // namespace k7test
