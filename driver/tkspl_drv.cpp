#include "driver/tkspl_drv.h"

#include <cstring>

#include "driver/one_reading.h"
#include "driver/protocols.h"
#include "driver/read_groups.h"

namespace {

constexpr int kEnglish = 9;
constexpr int kRussian = 25;

// Codes and values of the host's port object.
constexpr int kBufferSize = 1024;
constexpr int kControlOpen = 5;
constexpr int kDataBits = 8;
constexpr int kParityEven = 2;
constexpr int kOneStopBit = 0;

const char* NameOf(const Protocol& protocol, int language) {
  if (language == kEnglish) return protocol.englishName;
  return language == kRussian ? protocol.russianName : "";
}

}  // namespace

unsigned TKSplDrv::GetName(int kind, char* text, int language) {
  const Protocol* protocol = FindProtocol(kind);
  if (protocol != nullptr && text != nullptr) {
    const char* name = NameOf(*protocol, language);
    std::memcpy(text, name, std::strlen(name) + 1);
  }
  return static_cast<unsigned>(Protocols().size());
}

unsigned TKSplDrv::GetBaud(int kind, int index, int* speed) {
  const Protocol* protocol = FindProtocol(kind);
  if (protocol == nullptr) return 0;
  const auto count = static_cast<int>(protocol->speeds.size());
  const int known = index >= 1 && index <= count ? index : 1;
  if (speed != nullptr) *speed = protocol->speeds[static_cast<std::size_t>(known - 1)];
  return static_cast<unsigned>(count);
}

unsigned TKSplDrv::CanReadGroup(int kind, char letter) {
  const Protocol* protocol = FindProtocol(kind);
  if (protocol == nullptr) return 0;
  for (const tav::ReadGroup group : protocol->groups) {
    if (IsLetterOf(group, letter)) return 1;
  }
  return 0;
}

// A kind that there is not has the limit of the first one: intended.
unsigned TKSplDrv::GetNumberLimit(int kind, char letter, int* limit) {
  if (letter != 'N') return 0;
  const Protocol* protocol = FindProtocol(kind);
  if (protocol == nullptr) protocol = &Protocols().front();
  if (limit != nullptr) *limit = protocol->largestNumber;
  return 1;
}

bool TKSplDrv::OpenPort() {
  return port != nullptr && port->SetBuffers(kBufferSize, kBufferSize) &&
         port->SetLine(1, 0, baud, kDataBits, kParityEven, kOneStopBit) &&
         port->SetTimeouts(5000, 0, 5000, 100, 1000) && port->Control(kControlOpen);
}

unsigned TKSplDrv::Start(int kind) {
  // Before anything else: a second start leaves mode and port of the running reading alone.
  if (!TakeReading(*this)) return 0;
  mode = kind;
  if (!OpenPort()) {
    GiveReadingBack(*this);
    return 0;
  }
  return StartThread(*this, PollThread) ? 1 : 0;
}

unsigned TKSplDrv::Stop() { return TavDrvV1::Stop() != 0 ? 1 : 0; }

void* TKSplDrv::Destroy(unsigned flags) { return TavDrvV1::Destroy(flags); }
