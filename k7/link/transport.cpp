#include "k7/link/transport.h"

#include <algorithm>

#include "k7/link/messages.h"
#include "platform/platform.h"

namespace k7 {
namespace {

constexpr unsigned kByteTimeoutMs = 300;
constexpr unsigned kWakeUpPauseMs = 100;
constexpr unsigned kStopPollMs = 50;
constexpr std::size_t kWakeUpBytes = 24;

}  // namespace

void Transport::Open(std::uint8_t address, FrameMode mode) {
  devAddr_ = address;
  frameMode_ = mode;
  seqNo_ = 0;
}

void Transport::WakeUp(Reply& reply) {
  txBuf_.fill(0xFF);
  Write(std::span(txBuf_).first(kWakeUpBytes));
  reply.Clear();
  Read(kByteTimeoutMs, 0, reply.bytes.data());
  platform::Sleep(kWakeUpPauseMs);
  reply.Clear();
}

int Transport::K7Query(std::uint8_t command, std::span<const std::uint8_t> data, Reply& reply) {
  ++seqNo_;
  const int attempts = driver_.param[0];
  for (int i = 0; i < attempts; ++i) {
    if (driver_.IsStop() != 0) return kStoppedByHost;
    const int result = Exchange(command, data, reply);
    if (result > 0) return result;
    Say(driver_, common::Format("i=%d count=%d", i + 1, attempts), "warning query");
  }
  Say(driver_, common::Format("count=%d", attempts), "error query");
  return kAttemptsUsed;
}

int Transport::Exchange(std::uint8_t command, std::span<const std::uint8_t> data, Reply& reply) {
  switch (frameMode_) {
    case FrameMode::kShort:
      SendShortFrame(command, data);
      return ReceiveShortFrame(reply);
    case FrameMode::kLong:
      return ReceiveLongFrame(SendLongFrame(command, data), reply);
  }
  return kUnknownFrameMode;
}

std::span<const std::uint8_t> Transport::SendLongFrame(std::uint8_t command,
                                                       std::span<const std::uint8_t> data) {
  const auto frame = BuildLongFrame(txBuf_, devAddr_, seqNo_, command, data);
  Write(frame);
  return frame;
}

void Transport::SendShortFrame(std::uint8_t command, std::span<const std::uint8_t> data) {
  Write(BuildShortFrame(txBuf_, devAddr_, command, data));
}

int Transport::ReceiveLongFrame(std::span<const std::uint8_t> request, Reply& reply) {
  longSearch_.Start(devAddr_, seqNo_, request);
  return Receive([this](std::size_t last) { return longSearch_.FindLongFrame(rxBuf_, last); },
                 reply);
}

int Transport::ReceiveShortFrame(Reply& reply) {
  shortSearch_.Start(devAddr_);
  return Receive([this](std::size_t last) { return shortSearch_.FindShortFrame(rxBuf_, last); },
                 reply);
}

// The searches never look behind the newest byte, so that the buffer need not be cleared.
template <typename Find>
int Transport::Receive(Find find, Reply& reply) {
  for (std::size_t ir = 0; ir < kReceiveLimit; ++ir) {
    if (driver_.IsStop() != 0) return kStoppedByHost;
    if (Read(kByteTimeoutMs, 1, &rxBuf_[ir]) < 1) {
      Say(driver_, common::Format("ir=%d", static_cast<int>(ir)), "error read (0)");
      return kNoByte;
    }
    const SearchResult found = find(ir);
    if (found.state == SearchResult::State::kFound) return Accept(found, reply);
    if (found.state == SearchResult::State::kEndless) return WaitForStop();
  }
  Say(driver_, common::Format("ir=%d", static_cast<int>(kReceiveLimit)), "error read full");
  return kNoFrame;
}

int Transport::Accept(const SearchResult& found, Reply& reply) const {
  std::copy_n(rxBuf_.begin() + static_cast<std::ptrdiff_t>(found.dataAt), found.length,
              reply.bytes.begin());
  reply.length = found.length;
  return found.command;
}

// A search without an end must not take the processor for as long as the host lets it run.
int Transport::WaitForStop() {
  while (driver_.IsStop() == 0) platform::Sleep(kStopPollMs);
  return kStoppedByHost;
}

// Whether it was written shows when no reply comes.
void Transport::Write(std::span<const std::uint8_t> bytes) {
  if (driver_.port == nullptr) return;
  driver_.port->Write(bytes.data(), static_cast<unsigned>(bytes.size()));
  platform::TerminationPoint();
}

int Transport::Read(unsigned timeoutMs, unsigned count, std::uint8_t* destination) {
  if (driver_.port == nullptr) return 0;
  const int received = driver_.port->Read(timeoutMs, count, destination);
  platform::TerminationPoint();
  return received;
}

}  // namespace k7
