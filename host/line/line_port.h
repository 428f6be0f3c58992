// A line to an instrument: what the program opens and hands to the driver.
//
// Lines stack: a class that keeps a line and is one itself (see wrapped_line.h) can record, count,
// repeat or spoil what goes through, and the driver sees no difference.
#pragma once

#include <string>
#include <string_view>

#include "TKSplDrv/host.h"

namespace host {

class LinePort : public HostPort {
 public:
  virtual ~LinePort() = default;

  void Reserved2() final {}
  void Reserved4() final {}

  // Whether the line is gone. From then on reads give nothing after a short pause, so that a driver
  // that still tries does not use the processor. Safe from any thread.
  virtual bool Lost() const = 0;
  // What went wrong first, one sentence; empty while nothing did. Safe from any thread.
  virtual std::string Trouble() const = 0;
  // What the last Control or Write threw away: bytes that came too late for whoever waited for
  // them, of a longer noise the first 4096. Valid until the next call; for the thread that makes
  // the calls.
  virtual std::string_view Dropped() const = 0;
};

}  // namespace host
