#include "tests/simulator/line.h"

#include <cstring>

namespace simulator {
namespace {

std::uint8_t Complement(std::span<const std::uint8_t> bytes) {
  unsigned sum = 0;
  for (const std::uint8_t byte : bytes) sum += byte;
  return static_cast<std::uint8_t>(0xFF - sum % 256);
}

}  // namespace

Settings FixedSettings(const std::string& model) {
  Settings settings;
  settings.model = model;
  settings.clock = ClockTime{2016, 9, 4, 13, 5, 9};
  return settings;
}

Bytes Request(const std::string& hex) {
  Bytes request = support::Hex("10 01 " + hex);
  request.push_back(Complement(std::span(request).subspan(1)));
  request.push_back(0x16);
  return request;
}

double FloatAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
  const auto b = bytes.subspan(offset, 4);
  const std::uint32_t ieee = (b[2] & 0x80u) << 24 | static_cast<std::uint32_t>(b[3]) << 23 |
                             (b[2] & 0x7Fu) << 16 | b[1] * 256u | b[0];
  float value;
  std::memcpy(&value, &ieee, sizeof value);
  return value;
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

Bytes Line::Data(const std::string& hex, std::size_t size) {
  const Bytes request = Request(hex);
  const Bytes replies = Send(request);
  const std::size_t frame = size + 5;
  if (replies.size() % frame != 0) return {};
  Bytes data;
  for (std::size_t at = 0; at < replies.size(); at += frame) {
    const auto reply = std::span(replies).subspan(at, frame);
    const bool good = reply[0] == 0x10 && reply[1] == 1 && reply[2] == request[2] &&
                      reply[size + 3] == Complement(reply.subspan(1, size + 2)) &&
                      reply[size + 4] == 0x16;
    if (!good) return {};
    data.insert(data.end(), reply.begin() + 3, reply.begin() + 3 + static_cast<int>(size));
  }
  return data;
}

}  // namespace simulator
