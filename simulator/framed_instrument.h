// What instruments of both protocols do with the bytes of the line: collect requests and answer
// each when it is complete.
#pragma once

#include <fmt/core.h>

#include <span>
#include <string>
#include <vector>

#include "simulator/instrument.h"

namespace simulator {

// Collector: Take(byte) gives an optional request, Pending() counts the bytes of a started one,
// Drop() forgets them.
template <typename Collector, typename Request>
class FramedInstrument : public Instrument {
 public:
  std::vector<Exchange> Receive(std::span<const std::uint8_t> bytes) override {
    std::vector<Exchange> exchanges;
    for (const std::uint8_t byte : bytes) {
      if (const auto request = collector_.Take(byte)) exchanges.push_back(Answer(*request));
    }
    return exchanges;
  }

  void Idle() override {
    if (collector_.Pending() > 0) {
      Report(fmt::format("A request broke off after {} bytes", collector_.Pending()));
    }
    collector_.Drop();
  }

 protected:
  explicit FramedInstrument(std::function<void(const std::string&)> report)
      : report_(std::move(report)) {}

  virtual Exchange Answer(const Request& request) = 0;
  // A sentence without its full stop.
  void Report(const std::string& sentence) const {
    if (report_) report_(sentence + ".");
  }

  Collector collector_;

 private:
  std::function<void(const std::string&)> report_;
};

}  // namespace simulator
