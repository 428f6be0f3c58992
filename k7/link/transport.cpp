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
  Read(kByteTimeoutMs, 0, reply.bytes.data());
  platform::Sleep(kWakeUpPauseMs);
  reply.Clear();
}

ReceivedCommand Transport::K7Query(std::uint8_t command, std::span<const std::uint8_t> data,
                                   Reply& reply) {
  ++seqNo_;
  const int attempts = driver_.param[0];
  for (int i = 0; i < attempts; ++i) {
    if (driver_.IsStop() != 0) return {};
    if (const ReceivedCommand received = Exchange(command, data, reply)) return received;
    Say(driver_, common::Format("i=%d count=%d", i + 1, attempts), "warning query");
  }
  Say(driver_, common::Format("count=%d", attempts), "error query");
  return {};
}

ReceivedCommand Transport::Exchange(std::uint8_t command, std::span<const std::uint8_t> data,
                                    Reply& reply) {
  if (frameMode_ == FrameMode::kShort) {
    Write(BuildShortFrame(txBuf_, devAddr_, command, data));
    return ReceiveShortFrame(reply);
  }
  const auto request = BuildLongFrame(txBuf_, devAddr_, seqNo_, command, data);
  Write(request);
  return ReceiveLongFrame(request, reply);
}

ReceivedCommand Transport::ReceiveLongFrame(std::span<const std::uint8_t> request, Reply& reply) {
  LongFrameSearch search(devAddr_, seqNo_, request);
  return Receive([&](std::size_t last) { return search.FindLongFrame(rxBuf_, last); }, reply);
}

ReceivedCommand Transport::ReceiveShortFrame(Reply& reply) {
  ShortFrameSearch search(devAddr_);
  return Receive([&](std::size_t last) { return search.FindShortFrame(rxBuf_, last); }, reply);
}

// The searches never look behind the newest byte, so that the buffer need not be cleared.
template <typename Find>
ReceivedCommand Transport::Receive(Find find, Reply& reply) {
  for (std::size_t ir = 0; ir < kReceiveLimit; ++ir) {
    if (driver_.IsStop() != 0) return {};
    if (Read(kByteTimeoutMs, 1, &rxBuf_[ir]) < 1) {
      Say(driver_, common::Format("ir=%d", static_cast<int>(ir)), "error read (0)");
      return {};
    }
    const SearchResult found = find(ir);
    if (found.state == SearchResult::State::kFound) return Accept(found, reply);
    if (found.state == SearchResult::State::kEndless) {
      WaitForStop();
      return {};
    }
  }
  Say(driver_, common::Format("ir=%d", static_cast<int>(kReceiveLimit)), "error read full");
  return {};
}

ReceivedCommand Transport::Accept(const SearchResult& found, Reply& reply) const {
  std::copy_n(rxBuf_.begin() + static_cast<std::ptrdiff_t>(found.dataAt), found.length,
              reply.bytes.begin());
  reply.length = found.length;
  return found.command;
}

// A search without an end must not take the processor for as long as the host lets it run.
void Transport::WaitForStop() {
  while (driver_.IsStop() == 0) platform::Sleep(kStopPollMs);
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
