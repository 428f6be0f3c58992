// A serial line with something at its other end: each write is handed to an answering function, and
// what it gives back is there to be read.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "TKSplDrv/host.h"
#include "tests/support/hex.h"

namespace support {

class FakePort final : public HostPort {
 public:
  using Answer = std::function<Bytes(const Bytes& written)>;

  bool Control(int code) override;
  bool SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                   unsigned writePerByte, unsigned writeConstant) override;
  void Reserved2() override;
  bool SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
               int stopBits) override;
  void Reserved4() override;
  bool SetBuffers(int input, int output) override;
  int Read(unsigned timeoutMs, unsigned count, void* destination) override;
  int Write(const void* data, unsigned length) override;

  Answer answer;                   // null: nothing is at the other end
  std::vector<std::string> setUp;  // the set-up calls with their arguments, in order
  std::string refuse;              // a set-up call that fails: "SetLine", "Control 5", ...
  std::vector<Bytes> writes;       // one for each Write
  Bytes received;                  // what is left to be read
  std::deque<Bytes> later;         // each arrives once a read has waited in vain
  int shortWrites = 0;             // this many writes answer one byte too few
  int reads = 0;
  std::vector<std::string> readArguments;  // "500 ms, 3", in order
  std::function<void()> onRead;

 private:
  bool Configure(const std::string& call);
};

}  // namespace support
