// A line over a serial device or a connection, with the time limits that the driver sets.
#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <string_view>

#include "host/line/channel.h"
#include "host/line/line_port.h"

namespace host {

// Takes about 1.5 KB, no thread, and of the system what its channel has open.
class StreamLine final : public LinePort {
 public:
  // name: what messages call the line.
  StreamLine(std::string name, std::unique_ptr<Channel> channel);

  bool Control(int code) override;
  bool SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                   unsigned writePerByte, unsigned writeConstant) override;
  bool SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
               int stopBits) override;
  bool SetBuffers(int /*input*/, int /*output*/) override { return true; }
  int Read(unsigned timeoutMs, unsigned count, void* destination) override;
  int Write(const void* data, unsigned length) override;

  bool Lost() const override { return lost_; }
  std::string Trouble() const override;
  void Hurry(bool hurry) override { channel_->Hurry(hurry); }
  std::string_view Dropped() const override { return dropped_; }

 private:
  using Clock = Channel::Clock;

  // Takes from what was received, as much as there is.
  std::size_t Take(std::span<char> into);
  // Fills the buffer, which is empty; false when nothing came before the deadline.
  bool Receive(Clock::time_point deadline);
  void DropReceived();
  void DropLate(std::string_view question);
  void KeepDropped();
  void AddSent(std::size_t count);
  // Keeps the first trouble.
  void Note(const std::string& trouble);
  void Lose(const std::string& trouble);

  std::string name_;
  std::unique_ptr<Channel> channel_;
  int baud_ = 0;                   // bit/s at which the line carries what is written; 0: not known
  Clock::time_point sentAt_;       // when the last byte written has left a line of this speed
  unsigned writePerByte_ = 100;    // ms
  unsigned writeConstant_ = 1000;  // ms
  // Received and not yet asked for. As large as the driver wants it by SetBuffers.
  std::array<char, 1024> buffer_{};
  std::span<const char> received_;
  std::string dropped_;
  bool cleared_ = false;  // what was received before the last call is dropped
  std::string asked_;     // what was written last
  std::atomic<bool> lost_ = false;
  mutable std::mutex mutex_;  // guards trouble_
  std::string trouble_;
};

}  // namespace host
