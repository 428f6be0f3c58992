#include "tests/simulator/line.h"

namespace simulator {

Settings FixedSettings(const std::string& model) {
  Settings settings;
  settings.model = model;
  settings.clock = ClockTime{2016, 9, 4, 13, 5, 9};
  return settings;
}

Bytes Request(const std::string& hex) {
  Bytes request = support::Hex("10 01 " + hex + " FF 16");
  for (std::size_t i = 1; i < 7; ++i)
    request[7] = static_cast<std::uint8_t>(request[7] - request[i]);
  return request;
}

Line::Line(Settings settings) : now(*settings.clock) {
  settings.report = [this](const std::string& sentence) { reports.push_back(sentence); };
  instrument_ = MakeInstrument(settings, [this] { return now; });
}

Bytes Line::Send(const Bytes& bytes) {
  Bytes replies;
  for (const Exchange& exchange : instrument_->Receive(bytes)) {
    for (const Part& part : exchange.reply) {
      replies.insert(replies.end(), part.bytes.begin(), part.bytes.end());
    }
  }
  return replies;
}

}  // namespace simulator
