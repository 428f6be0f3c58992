#include "simulator/k7/frame.h"

#include <numeric>
#include <span>
#include <utility>

namespace simulator::k7 {
namespace {

constexpr std::uint8_t kStart = 0x10;
constexpr std::uint8_t kLong = 0x90;
constexpr std::uint8_t kStop = 0x16;
constexpr std::uint8_t kWakeUp = 0xFF;
constexpr int kWakeUpRun = 20;

std::uint8_t Byte(std::size_t value) { return static_cast<std::uint8_t>(value); }

// Bit by bit: a one in front of the register meets the polynomial.
std::uint16_t CrcOf(std::span<const std::uint8_t> bytes) {
  unsigned rest = 0;
  for (const std::uint8_t byte : bytes) {
    rest ^= static_cast<unsigned>(byte) << 8;
    for (int bit = 0; bit < 8; ++bit) rest = rest & 0x8000 ? (rest << 1) ^ 0x1021 : rest << 1;
    rest &= 0xFFFF;
  }
  return static_cast<std::uint16_t>(rest);
}

std::uint8_t SumOf(std::span<const std::uint8_t> bytes) {
  return Byte(~std::accumulate(bytes.begin(), bytes.end(), std::size_t{0}));
}

void Append(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

std::size_t LongSize(const Bytes& bytes) { return bytes[5] + 256u * bytes[6] + 9u; }

std::optional<Frame> ParseLong(const Bytes& bytes) {
  const std::span covered = std::span(bytes).subspan(1, bytes.size() - 3);
  const std::uint16_t crc = CrcOf(covered);
  const bool right = bytes.size() == LongSize(bytes) && bytes.size() >= 10 && bytes[4] == 0 &&
                     bytes[bytes.size() - 2] == crc >> 8 && bytes.back() == (crc & 0xFF);
  if (!right) return std::nullopt;
  return Frame{true, bytes[1], bytes[3], bytes[7], Bytes(bytes.begin() + 8, bytes.end() - 2)};
}

bool IsShort(const Bytes& bytes) {
  return bytes.size() >= 5 && bytes.back() == kStop &&
         SumOf(std::span(bytes).subspan(1, bytes.size() - 3)) == bytes[bytes.size() - 2];
}

}  // namespace

Bytes Build(const Frame& frame) {
  Bytes bytes{kStart, frame.address};
  if (!frame.isLong) {
    bytes.push_back(frame.command);
    Append(bytes, frame.data);
    bytes.push_back(SumOf(std::span(bytes).subspan(1)));
    bytes.push_back(kStop);
    return bytes;
  }
  const std::size_t length = frame.data.size() + 1;
  Append(bytes, {kLong, frame.sequence, 0, Byte(length), Byte(length >> 8), frame.command});
  Append(bytes, frame.data);
  const std::uint16_t crc = CrcOf(std::span(bytes).subspan(1));
  Append(bytes, {Byte(crc >> 8), Byte(crc)});
  return bytes;
}

std::optional<Frame> Parse(const Bytes& bytes) {
  if (bytes.size() >= 7 && bytes[2] == kLong) return ParseLong(bytes);
  if (!IsShort(bytes)) return std::nullopt;
  return Frame{false, bytes[1], 0, bytes[2], Bytes(bytes.begin() + 3, bytes.end() - 2)};
}

// A short frame tells its length by its end alone: by a stop byte behind the sum of all before it.
bool RequestCollector::IsComplete() const {
  const std::size_t size = bytes_.size();
  if (size < 5) return false;
  if (bytes_[2] == kLong) return size >= 7 && size >= LongSize(bytes_);
  const std::uint8_t sum = bytes_[size - 2];
  return bytes_.back() == kStop && Byte(~(sum_ - kStop - sum)) == sum;
}

void RequestCollector::Drop() {
  bytes_.clear();
  sum_ = 0;
}

std::optional<Bytes> RequestCollector::Take(std::uint8_t byte) {
  if (bytes_.empty() && byte != kStart) {
    if (byte == kWakeUp) ++wakeUpBytes_;
    return std::nullopt;
  }
  if (!bytes_.empty()) sum_ += byte;
  bytes_.push_back(byte);
  if (!IsComplete()) return std::nullopt;
  const Bytes frame = bytes_;
  Drop();
  return frame;
}

bool RequestCollector::WasWoken() { return std::exchange(wakeUpBytes_, 0) >= kWakeUpRun; }

}  // namespace simulator::k7
