// A line that counts what came over it since the last run of the driver began.
#pragma once

#include <atomic>
#include <cstddef>

#include "host/line/wrapped_line.h"

namespace host {

class CountingLine final : public WrappedLine {
 public:
  using WrappedLine::WrappedLine;

  // Bytes that the driver was given. From any thread.
  std::size_t Received() const { return received_; }
  // Bytes thrown away before the driver waited for any: they answer what was asked before this run.
  std::size_t LateBefore() const { return lateBefore_; }
  // Bytes thrown away since.
  std::size_t LateSince() const { return lateSince_; }

  bool Control(int code) override {
    const bool done = WrappedLine::Control(code);
    CountDropped();
    return done;
  }
  int Read(unsigned timeoutMs, unsigned count, void* destination) override {
    if (count > 0) waited_ = true;
    const int taken = WrappedLine::Read(timeoutMs, count, destination);
    received_ += static_cast<std::size_t>(taken);
    return taken;
  }
  int Write(const void* data, unsigned length) override {
    const int written = WrappedLine::Write(data, length);
    CountDropped();
    return written;
  }
  void BeginRun(const std::string& settings, const StopDriver& stop) override {
    received_ = lateBefore_ = lateSince_ = 0;
    waited_ = false;
    WrappedLine::BeginRun(settings, stop);
  }

 private:
  void CountDropped() { (waited_ ? lateSince_ : lateBefore_) += WrappedLine::Dropped().size(); }

  std::atomic<std::size_t> received_ = 0;
  std::atomic<std::size_t> lateBefore_ = 0;
  std::atomic<std::size_t> lateSince_ = 0;
  std::atomic<bool> waited_ = false;
};

}  // namespace host
