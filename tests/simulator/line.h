// A simulated instrument with number 1 on a line in memory, and a host's view of its replies.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "simulator/instrument.h"
#include "tests/support/hex.h"

namespace simulator {

// The 4th of September 2016, 13:05:09.
Settings FixedSettings(const std::string& model);

// "52 64 00 06 00": function and parameters, with the rest of a request to number 1 around them.
Bytes Request(const std::string& hex);

// Four bytes of an instrument float.
double FloatAt(std::span<const std::uint8_t> bytes, std::size_t offset);

class Line {
 public:
  explicit Line(Settings settings);

  // All bytes of the replies, whatever silences are between them.
  Bytes Send(const Bytes& bytes);
  // The replies to a request as the line carries them.
  std::string Ask(const std::string& hex) { return support::ToHex(Send(Request(hex))); }
  // The data bytes of all the frames of a good reply, each with `size` of them; empty when a frame
  // has a wrong length, header, checksum or end.
  Bytes Data(const std::string& hex, std::size_t size);

  Instrument& GetInstrument() { return *instrument_; }
  std::vector<std::string> reports;
  ClockTime now;

 private:
  std::unique_ptr<Instrument> instrument_;
};

}  // namespace simulator
