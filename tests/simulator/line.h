// A simulated instrument with number 1 on a line in memory, and a host's view of its replies.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "simulator/catalogue/catalogue.h"
#include "tests/support/hex.h"

namespace simulator {

// The 4th of September 2016, 13:05:09.
Settings FixedSettings(const std::string& model);

// "52 64 00 06 00": function and parameters, with the rest of an older request to number 1 around
// them.
Bytes Request(const std::string& hex);

class Line {
 public:
  explicit Line(Settings settings);

  // All bytes of the replies, whatever silences are between them.
  Bytes Send(const Bytes& bytes);
  // The replies to an older request as the line carries them.
  std::string Ask(const std::string& hex) { return support::ToHex(Send(Request(hex))); }

  Instrument& GetInstrument() { return *instrument_; }
  std::vector<std::string> reports;
  ClockTime now;

 private:
  std::unique_ptr<Instrument> instrument_;
};

}  // namespace simulator
