#include "tests/host/completeness/simulated_reading.h"

#include <atomic>
#include <chrono>
#include <thread>

#include "tests/support/fake_clock.h"

namespace completeness {

host::ReadSettings Asked(const std::string& model, int attempts, int retryGaps) {
  host::ReadSettings asked;
  asked.kind = model.starts_with("k7") ? tav::Mode::kK7 : tav::Mode::kOlder;
  asked.attempts = attempts;
  asked.retryGaps = retryGaps;
  asked.from = {2016, 9, 0, 3, 20, 0, 0, 0};
  asked.to = {2016, 9, 0, 4, 23, 59, 59, 0};
  return asked;
}

Outcome Read(const host::ReadSettings& asked, const simulator::Settings& settings,
             host::KnownRecords* known) {
  SimulatedPort line(settings);
  return ReadOver(line, asked, known);
}

Outcome ReadOver(host::LinePort& line, const host::ReadSettings& asked, host::KnownRecords* known) {
  // Some replies leave the driver waiting until it is stopped, as a person would stop it.
  constexpr int kPatience = 5000;
  std::atomic<int> pauses = 0;
  support::clock::Reset();
  support::clock::OnPause([&](unsigned) {
    if (++pauses > kPatience) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  });
  Outcome outcome;
  const auto askStop = [&] {
    return pauses > kPatience ? host::StopRequest::kInterrupted : host::StopRequest::kNone;
  };
  outcome.end = host::RunReading(host::DriverLibrary(""), {asked, "", {}}, line, outcome.rows,
                                 askStop, known);
  support::clock::Reset();
  return outcome;
}

simulator::Settings Instrument(const std::string& model, std::vector<simulator::Fault> faults) {
  simulator::Settings settings;
  settings.model = model;
  settings.faults = std::move(faults);
  return settings;
}

}  // namespace completeness
