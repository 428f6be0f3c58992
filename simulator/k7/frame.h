// Frames of the newer protocol as an instrument takes and sends them.
//
// Long:  10 address 90 sequence 00 length(2, low byte first) command data crc(2, high byte first)
// Short: 10 address command data checksum 16
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "simulator/instrument.h"

namespace simulator::k7 {

struct Frame {
  bool isLong = true;
  std::uint8_t address = 0;
  std::uint8_t sequence = 0;  // of long frames
  std::uint8_t command = 0;
  Bytes data;
};

Bytes Build(const Frame& frame);
// Of a whole frame; nothing when it is damaged.
std::optional<Frame> Parse(const Bytes& bytes);

// Collects frames. A run of FF before a frame wakes the instrument up.
class RequestCollector {
 public:
  // The frame, damaged or not, that ends with this byte.
  std::optional<Bytes> Take(std::uint8_t byte);
  void Drop();
  std::size_t Pending() const { return bytes_.size(); }
  // Whether a wake-up run came since the last time this was asked.
  bool WasWoken();

 private:
  bool IsComplete() const;

  Bytes bytes_;
  std::size_t sum_ = 0;  // of the bytes behind the start byte
  int wakeUpBytes_ = 0;
};

}  // namespace simulator::k7
