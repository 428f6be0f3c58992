// One exchange with the instrument: a request out, a reply in, checked.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "TKSplDrv/driver.h"
#include "older/link/frame.h"

namespace older {

// What the port does before a request goes out.
enum class LineControl {
  kCalled,  // Control(3): what was received earlier is dropped
  kLeftOut,
};

class Link {
 public:
  explicit Link(TavDrvV1& driver) : driver_(driver) {}

  // The burst of 0xFF that wakes an instrument, and the pause in which it gets ready. What the port
  // returns does not matter.
  void WakeUp();

  // kNone or kWrite.
  ExchangeError Send(const Request& request, LineControl control = LineControl::kCalled);

  // Reads a data reply of exactly data.size() bytes (1 to 255). The first two header bytes, the
  // echoed function and the end byte are not looked at: intended.
  ExchangeError ReadReply(std::span<std::uint8_t> data);

  // Reads count bytes as they come (at most 255) and returns how many came; they stand in Received.
  int ReadPlain(unsigned count);
  std::span<std::uint8_t> Received() { return reply_; }

  // Whether a reply was accepted since the last call of this.
  bool TakeAnswered();

  // Memory ('R').
  ExchangeError ReadMemory(std::uint16_t address, std::span<std::uint8_t> data);

  // Flash ('E') of pages.size() / 64 whole pages, at most 255. pages is zeroed; a page whose reply
  // ends in error 14 stays zero and the read goes on: intended.
  ExchangeError ReadFlash(std::uint16_t firstPage, std::span<std::uint8_t> pages);

 private:
  int Receive(std::size_t position, unsigned count);
  ExchangeError ReadErrorReply();

  TavDrvV1& driver_;
  bool answered_ = false;
  std::array<std::uint8_t, 1024> reply_{};  // every reply of every request passes through it
};

inline constexpr std::size_t kFlashPageSize = 64;

}  // namespace older
