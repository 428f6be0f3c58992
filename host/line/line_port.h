// A line to an instrument: what the program opens and hands to the driver.
//
// Lines stack: a class that keeps a line and is one itself (see wrapped_line.h) can record, count,
// repeat or spoil what goes through, and the driver sees no difference.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "TKSplDrv/host.h"
#include "host/line/line_counts.h"

namespace host {

// Why a run of the driver is stopped before its end.
enum class StopCause {
  kNone,     // it is not
  kUser,     // who started it wants it
  kDone,     // all that was wanted is there
  kLost,     // the line is
  kRefused,  // what takes the records does not take them any more
  kWaited    // in vain
};
using StopDriver = std::function<void()>;

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
  // What went through so far; none: nobody counts. Not while a run of the driver is under way.
  virtual std::optional<LineCounts> Counts() const { return std::nullopt; }

  // hurry: calls come back within their own time limits from here on, whatever they wait for. From
  // any thread.
  virtual void Hurry(bool /*hurry*/) {}

  // --- Runs of the driver over the line, for lines that record or repeat them; from the host's
  // thread ---

  // settings: of the run, a JSON object on one line. stop asks its driver to stop, from any thread,
  // until EndRun.
  virtual void BeginRun(const std::string& /*settings*/, const StopDriver& /*stop*/) {}
  // About ten times a second, with what the host wants. The line chooses the moment at which stop
  // is called. Returns for what the driver has been asked to stop, or will be.
  virtual StopCause Decide(StopCause wanted, const StopDriver& stop) {
    if (wanted != StopCause::kNone) stop();
    return wanted;
  }
  // obeyed: the driver ended by itself; cause: for what it was stopped, or that of a repeated run.
  virtual StopCause EndRun(bool /*obeyed*/, StopCause cause) { return cause; }
};

}  // namespace host
