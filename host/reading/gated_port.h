// A port that can be taken away from the driver while its thread uses it.
#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>

#include "TKSplDrv/host.h"

namespace host {

// Passes everything to another port until it is closed.
class GatedPort final : public HostPort {
 public:
  // port must outlive its use: until Close returns.
  explicit GatedPort(HostPort& port) : port_(port) {}

  // From here on every call does nothing and returns at once. Returns when the call that is under
  // way has returned, with the lock that each call takes: while it is held, no thread is inside.
  std::unique_lock<std::mutex> Close() {
    closed_ = true;
    return std::unique_lock(calls_);
  }

  // Bytes, since the beginning; from any thread.
  std::size_t Received() const { return received_; }

  bool Control(int code) override {
    return Pass(false, [&] { return port_.Control(code); });
  }
  bool SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                   unsigned writePerByte, unsigned writeConstant) override {
    return Pass(false, [&] {
      return port_.SetTimeouts(readInterval, readPerByte, readConstant, writePerByte,
                               writeConstant);
    });
  }
  void Reserved2() override {}
  bool SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
               int stopBits) override {
    return Pass(
        false, [&] { return port_.SetLine(unknown1, unknown0, baud, dataBits, parity, stopBits); });
  }
  void Reserved4() override {}
  bool SetBuffers(int input, int output) override {
    return Pass(false, [&] { return port_.SetBuffers(input, output); });
  }
  int Read(unsigned timeoutMs, unsigned count, void* destination) override {
    const int taken = Pass(0, [&] { return port_.Read(timeoutMs, count, destination); });
    received_ += static_cast<std::size_t>(taken);
    return taken;
  }
  int Write(const void* data, unsigned length) override {
    return Pass(0, [&] { return port_.Write(data, length); });
  }

 private:
  // Looks before the lock too: whoever closes keeps the lock for a while.
  template <class Result, class Call>
  Result Pass(Result closed, Call call) {
    if (closed_) return closed;
    const std::lock_guard lock(calls_);
    return closed_ ? closed : call();
  }

  HostPort& port_;
  std::atomic<bool> closed_ = false;
  std::atomic<std::size_t> received_ = 0;
  std::mutex calls_;
};

}  // namespace host
