// Frames of the older protocol: requests of nine bytes, replies with data, error replies.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "simulator/instrument.h"

namespace simulator::older {

constexpr std::size_t kRequestSize = 9;
using RequestFrame = std::array<std::uint8_t, kRequestSize>;

// Complement of the sum of the bytes.
std::uint8_t Checksum(std::span<const std::uint8_t> bytes);

// Collects the nine bytes of a request. Wake-up bytes 0xFF before it are skipped.
class RequestCollector {
 public:
  // The request that ends with this byte.
  std::optional<RequestFrame> Take(std::uint8_t byte);
  void Drop() { count_ = 0; }
  std::size_t Pending() const { return count_; }

 private:
  RequestFrame frame_{};
  std::size_t count_ = 0;
};

// What is wrong with the frame itself, for an instrument of this number; empty: nothing. An
// instrument stays silent after such a request.
std::string FrameError(const RequestFrame& frame, std::uint8_t number);

Bytes DataReply(std::uint8_t number, std::uint8_t function, std::span<const std::uint8_t> data);
Bytes ErrorReply(std::uint8_t number, std::uint8_t code);

// "10 01 3F"
std::string Hex(std::span<const std::uint8_t> bytes);

}  // namespace simulator::older
