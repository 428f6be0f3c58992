#include "simulator/older/frame.h"

#include <fmt/format.h>

#include <numeric>

namespace simulator::older {
namespace {

constexpr std::uint8_t kStart = 0x10;
constexpr std::uint8_t kEnd = 0x16;
constexpr std::uint8_t kWakeUp = 0xFF;
constexpr std::uint8_t kErrorMark = '!';

std::string Wrong(const char* what, std::uint8_t got, std::uint8_t expected) {
  return fmt::format("the {} is 0x{:02X} instead of 0x{:02X}", what, got, expected);
}

}  // namespace

std::uint8_t Checksum(std::span<const std::uint8_t> bytes) {
  const unsigned sum = std::accumulate(bytes.begin(), bytes.end(), 0u);
  return static_cast<std::uint8_t>(~sum);
}

std::optional<RequestFrame> RequestCollector::Take(std::uint8_t byte) {
  if (count_ == 0 && byte == kWakeUp) return std::nullopt;
  frame_[count_++] = byte;
  if (count_ < kRequestSize) return std::nullopt;
  count_ = 0;
  return frame_;
}

std::string FrameError(const RequestFrame& frame, std::uint8_t number) {
  if (frame[0] != kStart) return Wrong("start byte", frame[0], kStart);
  if (frame[8] != kEnd) return Wrong("end byte", frame[8], kEnd);
  const std::uint8_t checksum = Checksum(std::span(frame).subspan(1, 6));
  if (frame[7] != checksum) return Wrong("checksum", frame[7], checksum);
  if (frame[1] != number) return Wrong("network number", frame[1], number);
  return {};
}

Bytes DataReply(std::uint8_t number, std::uint8_t function, std::span<const std::uint8_t> data) {
  Bytes reply;
  reply.reserve(data.size() + 5);
  reply.assign({kStart, number, function});
  reply.insert(reply.end(), data.begin(), data.end());
  reply.push_back(Checksum(std::span(reply).subspan(1)));
  reply.push_back(kEnd);
  return reply;
}

Bytes ErrorReply(std::uint8_t number, std::uint8_t code) {
  const std::uint8_t data[] = {code};
  return DataReply(number, kErrorMark, data);
}

std::string Hex(std::span<const std::uint8_t> bytes) {
  return fmt::format("{:02X}", fmt::join(bytes, " "));
}

}  // namespace simulator::older
