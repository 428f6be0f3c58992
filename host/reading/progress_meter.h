// Adds to what the driver tells of its progress what a person wants to know.
#pragma once

#include <chrono>
#include <optional>

#include "host/reading/k7_steps.h"
#include "host/reading/wrapped_listener.h"

namespace host {

// Passes everything on; progress with rows, time to go and, of a K7 instrument, a percentage. A
// reading that ends well reaches 100.
class ProgressMeter final : public WrappedListener {
 public:
  using Clock = std::chrono::steady_clock;

  // to must outlive it.
  explicit ProgressMeter(RunListener& to, std::function<Clock::time_point()> now = Clock::now)
      : WrappedListener(to), now_(std::move(now)) {}

  void BeginRun(const Run& run) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void Tell(const Message& message) override;
  void ShowProgress(const Progress& progress) override;
  void EndRun(const RunEnd& end) override;

 private:
  std::optional<long long> SecondsLeft(int percent) const;

  std::function<Clock::time_point()> now_;
  Clock::time_point begun_;
  bool endless_ = false;  // new values follow what the percentage is of
  std::optional<K7Steps> k7_;
  Progress last_;
};

}  // namespace host
