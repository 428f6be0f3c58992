// One question and its answer over the host's serial line.
#pragma once

#include <cstdint>
#include <span>

#include "TKSplDrv/driver.h"
#include "k7/link/frame_search.h"
#include "k7/link/frames.h"
#include "k7/link/reply.h"

namespace k7 {

enum class FrameMode { kShort, kLong };

class Transport {
 public:
  // driver outlives the transport. Its parameter 1 is the number of attempts.
  explicit Transport(TavDrvV1& driver) : driver_(driver) {}

  // Starts a link from its initial state.
  void Open(std::uint8_t address, FrameMode mode);
  // Wakes the instrument: a run of FF bytes, then what arrived is dropped. reply is left cleared.
  void WakeUp(Reply& reply);
  // Sends a command with its data and waits for the reply, again after each failure. All attempts
  // carry one sequence number. reply is written only when a reply was accepted.
  ReceivedCommand K7Query(std::uint8_t command, std::span<const std::uint8_t> data, Reply& reply);

 private:
  ReceivedCommand Exchange(std::uint8_t command, std::span<const std::uint8_t> data, Reply& reply);
  ReceivedCommand ReceiveLongFrame(std::span<const std::uint8_t> request, Reply& reply);
  ReceivedCommand ReceiveShortFrame(Reply& reply);
  template <typename Find>
  ReceivedCommand Receive(Find find, Reply& reply);
  ReceivedCommand Accept(const SearchResult& found, Reply& reply) const;
  void WaitForStop();
  void Write(std::span<const std::uint8_t> bytes);
  int Read(unsigned timeoutMs, unsigned count, std::uint8_t* destination);

  TavDrvV1& driver_;
  FrameMode frameMode_ = FrameMode::kLong;
  std::uint8_t devAddr_ = 0;
  std::uint8_t seqNo_ = 0;
  TxBuf txBuf_{};
  RxBuf rxBuf_{};
};

}  // namespace k7
