// Tells when a run of the driver waits in vain.
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <string>

#include "host/reading/settings.h"
#include "host/reading/wrapped_listener.h"

namespace host {

// A run lives as long as it gets on: bytes come in, and the driver then writes records or tells
// something else than a failed attempt. Messages alone are no life, since the driver also goes
// through the dates of an archive of which it gets none; bytes alone are none either, since a line
// may carry noise, or another protocol, for ever. But a reply of 64 KB takes a slow line five
// minutes, in which there is nothing to tell: up to the longest reply, the time that the bytes
// since the last sign of life need on the line does not count.
class Patience {
 public:
  using Clock = std::chrono::steady_clock;

  Patience(const ReadSettings& settings, Clock::time_point now);

  // From any thread: the driver has got on, if it has got anything.
  void GetOn() { gotOn_ = true; }
  // received: bytes, since the beginning of the run.
  bool IsOver(std::size_t received, Clock::time_point now);

 private:
  std::chrono::seconds limit_;  // zero: none
  int baud_;                    // bit/s
  std::atomic<bool> gotOn_ = false;
  Clock::time_point aliveAt_;
  std::size_t receivedThen_ = 0;
};

// Passes everything on and tells the patience what is life.
class PatientListener final : public WrappedListener {
 public:
  PatientListener(RunListener& to, Patience& patience) : WrappedListener(to), patience_(patience) {}
  void AddPiece(ByteView piece) override;
  void Tell(const Message& message) override;

 private:
  Patience& patience_;
};

// What to look at when nothing comes from an instrument, for the end of a sentence.
std::string LikelyCauses(const ReadSettings& settings);

// "nothing has come from the instrument for 2 min; likely causes: ...".
std::string SilenceReason(const ReadSettings& settings);

// "2 min", "90 s", "3 h 12 min".
std::string TimeText(std::chrono::seconds time);

}  // namespace host
