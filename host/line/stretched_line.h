// A line that waits longer than the driver asks it to, for gateways and radio links that are slow.
#pragma once

#include <atomic>

#include "host/line/wrapped_line.h"

namespace host {

// Waits in pieces of the driver's own limits, so that a stop takes no longer than without it.
class StretchedLine final : public WrappedLine {
 public:
  // factor: 1 or more.
  StretchedLine(std::unique_ptr<LinePort> line, double factor)
      : WrappedLine(std::move(line)), factor_(factor) {}

  bool SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                   unsigned writePerByte, unsigned writeConstant) override;
  int Read(unsigned timeoutMs, unsigned count, void* destination) override;
  void Hurry(bool hurry) override;

 private:
  unsigned Stretched(unsigned ms) const;

  const double factor_;
  std::atomic<bool> hurried_ = false;
};

}  // namespace host
