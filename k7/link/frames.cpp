#include "k7/link/frames.h"

#include <algorithm>

#include "k7/link/crc.h"

namespace k7 {
namespace {

// Lays bytes one behind the other into a zeroed buffer.
class Builder {
 public:
  explicit Builder(TxBuf& buffer) : buffer_(buffer) { buffer_.fill(0); }

  void Put(unsigned byte) { buffer_[size_++] = static_cast<std::uint8_t>(byte); }
  void Put(std::span<const std::uint8_t> data, std::size_t bytesBehind) {
    const std::size_t count = std::min(data.size(), buffer_.size() - size_ - bytesBehind);
    std::copy_n(data.begin(), count, buffer_.begin() + static_cast<std::ptrdiff_t>(size_));
    size_ += count;
  }
  // Everything but the start byte.
  std::span<const std::uint8_t> Covered() const { return Frame().subspan(1); }
  std::span<const std::uint8_t> Frame() const { return std::span(buffer_).first(size_); }

 private:
  TxBuf& buffer_;
  std::size_t size_ = 0;
};

}  // namespace

std::span<const std::uint8_t> BuildLongFrame(TxBuf& buffer, std::uint8_t address,
                                             std::uint8_t sequence, std::uint8_t command,
                                             std::span<const std::uint8_t> data) {
  Builder builder(buffer);
  for (const unsigned byte :
       {unsigned{kStartByte}, unsigned{address}, unsigned{kLongMarker}, unsigned{sequence}, 0U}) {
    builder.Put(byte);
  }
  builder.Put(static_cast<unsigned>(data.size() + 1) & 0xFFU);
  builder.Put(0);
  builder.Put(command);
  builder.Put(data, 2);
  const std::uint16_t crc = Crc16(builder.Covered());
  builder.Put(crc >> 8);
  builder.Put(crc & 0xFFU);
  return builder.Frame();
}

std::span<const std::uint8_t> BuildShortFrame(TxBuf& buffer, std::uint8_t address,
                                              std::uint8_t command,
                                              std::span<const std::uint8_t> data) {
  Builder builder(buffer);
  builder.Put(kStartByte);
  builder.Put(address);
  builder.Put(command);
  builder.Put(data, 2);
  builder.Put(Checksum(builder.Covered()));
  builder.Put(kStopByte);
  return builder.Frame();
}

}  // namespace k7
