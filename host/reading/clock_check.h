// Compares the instrument's clock with this machine's.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "host/reading/wrapped_listener.h"

namespace host {

// "2016.09.04 13:05:09" of the older kind, "2016.9.4 13:5:9" of k7. Nothing: it is no date.
std::optional<SYSTEMTIME> ParseInstrumentTime(const std::string& text);

// Passes everything on, and takes the first clock that the driver tells.
class ClockCheck final : public WrappedListener {
 public:
  // now: this machine's local time. settings and what is passed to must outlive it.
  ClockCheck(RunListener& to, const ReadSettings& settings, std::function<SYSTEMTIME()> now)
      : WrappedListener(to), settings_(settings), now_(std::move(now)) {}
  void Tell(const Message& message) override;

  // Once nothing is told any more, or from the thread that tells.
  const std::optional<ClockReading>& Reading() const { return reading_; }

 private:
  const ReadSettings& settings_;
  std::function<SYSTEMTIME()> now_;
  std::optional<ClockReading> reading_;
};

// "the instrument's clock is 3 h 12 min behind this machine's".
std::string ClockDifference(const ClockReading& reading);

}  // namespace host
