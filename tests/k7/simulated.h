// Readings of simulated instruments on the test's own thread. A test may put replies of its own
// into the line.
#pragma once

#include "common/cp1251.h"
#include "simulator/k7/frame.h"
#include "simulator/k7/values.h"
#include "tests/support/reading.h"
#include "tests/support/sections.h"
#include "tests/support/simulated_line.h"

namespace k7test {

using simulator::k7::Frame;
using support::Bytes;

simulator::Settings Instrument(const char* model, std::vector<simulator::Fault> faults = {});

// The frame that answers a request.
Bytes Reply(const Frame& request, int command, const Bytes& data);

// Of a parameter request: "1:0+10", its channel, first parameter and count.
std::string RangeOf(const Frame& request);

struct Reading : support::Reading {
  // From 2016-08-30 22:17:05 to 2016-09-02 03:30:40, over the end of a month.
  explicit Reading(const simulator::Settings& settings, const char* groups = "");
  explicit Reading(const char* model, const char* groups = "")
      : Reading(Instrument(model), groups) {}

  // The whole reading as the driver's thread does it. Returns the final message.
  std::string Run();
  bool Said(const std::string& detail, const char* subject) const {
    return stream.Said(detail + " / " + subject);
  }
  std::vector<support::Section> Sections() const { return support::TakeApart(stream.writes); }
  // "O ОБЩ, H ОБЩ", in code page 1251.
  std::string Titles() const;

  simulator::k7::Values values;  // what the instrument holds
  std::vector<Frame> requests;
  // Called with each request and its reply, which it may change.
  std::function<void(const Frame& request, Bytes& reply)> onReply;
};

}  // namespace k7test
