// A host that keeps what it was told.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "TKSplDrv/host.h"
#include "tests/support/hex.h"

namespace support {

// "OK / ReadStop"; a code other than 0 follows as " / 1". Texts stay in code page 1251.
std::string MessageLine(const char* text1, const char* text2, unsigned code);

class RecordingStream final : public HostStream {
 public:
  bool Message(const char* text1, const char* text2, unsigned code) override;
  bool Write(const void* data, unsigned length) override;

  // Everything written, one after the other.
  Bytes Stream() const;
  bool Said(const std::string& line) const;
  int CountOf(const std::string& line) const;

  std::vector<std::string> messages;  // MessageLine each
  std::vector<Bytes> writes;          // one for each call that was accepted
  int refuseWriteAt = -1;             // the index of the first refused call; -1: none
  int writeCalls = 0;
  std::function<void(const std::string&)> onMessage;  // after it was kept
  std::function<void()> onWrite;
};

}  // namespace support
