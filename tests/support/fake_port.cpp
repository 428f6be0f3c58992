#include "tests/support/fake_port.h"

#include <algorithm>
#include <stdexcept>

namespace support {
namespace {

template <typename... Arguments>
std::string Call(const std::string& name, Arguments... arguments) {
  std::string text = name;
  ((text += ' ' + std::to_string(arguments)), ...);
  return text;
}

}  // namespace

bool FakePort::Configure(const std::string& call) {
  setUp.push_back(call);
  return refuse.empty() || call.rfind(refuse, 0) != 0;
}

bool FakePort::Control(int code) {
  constexpr int kDropReceived = 3;
  if (code == kDropReceived) {
    received.clear();
    later.clear();
  }
  return Configure(Call("Control", code));
}

bool FakePort::SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                           unsigned writePerByte, unsigned writeConstant) {
  return Configure(
      Call("SetTimeouts", readInterval, readPerByte, readConstant, writePerByte, writeConstant));
}

void FakePort::Reserved2() { throw std::logic_error("slot 2 is never called"); }

bool FakePort::SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
                       int stopBits) {
  return Configure(Call("SetLine", unknown1, unknown0, baud, dataBits, parity, stopBits));
}

void FakePort::Reserved4() { throw std::logic_error("slot 4 is never called"); }

bool FakePort::SetBuffers(int input, int output) {
  return Configure(Call("SetBuffers", input, output));
}

int FakePort::Read(unsigned timeoutMs, unsigned count, void* destination) {
  ++reads;
  readArguments.push_back(std::to_string(timeoutMs) + " ms, " + std::to_string(count));
  if (onRead) onRead();
  const std::size_t taken = std::min<std::size_t>(count, received.size());
  const auto end = received.begin() + static_cast<std::ptrdiff_t>(taken);
  std::copy(received.begin(), end, static_cast<std::uint8_t*>(destination));
  received.erase(received.begin(), end);
  if (taken < count && !later.empty()) {
    received = later.front();
    later.pop_front();
  }
  return static_cast<int>(taken);
}

int FakePort::Write(const void* data, unsigned length) {
  const auto* bytes = static_cast<const std::uint8_t*>(data);
  writes.emplace_back(bytes, bytes + length);
  if (shortWrites > 0) {
    --shortWrites;
    return static_cast<int>(length) - 1;
  }
  if (answer) received = received + answer(writes.back());
  return static_cast<int>(length);
}

}  // namespace support
