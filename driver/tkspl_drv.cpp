#include "driver/tkspl_drv.h"

#include <cstring>

#include "common/cp1251.h"

namespace {

using namespace common::literals;

constexpr unsigned kKinds = 2;
constexpr int kEnglish = 9;
constexpr int kRussian = 25;
constexpr int kLargestNumber = 255;
constexpr char kOfferedGroups[] = "BEHMSTbehmst";

// Codes and values of the host's port object.
constexpr int kBufferSize = 1024;
constexpr int kControlOpen = 5;
constexpr int kDataBits = 8;
constexpr int kParityEven = 2;
constexpr int kOneStopBit = 0;

bool IsKind(int kind) {
  return kind == static_cast<int>(Protocol::kOlder) || kind == static_cast<int>(Protocol::kK7);
}

const char* NameOf(bool older, int language) {
  switch (language) {
    case kEnglish:
      return older ? "Irvela 52x/72x" : "Irvela K7";
    case kRussian:
      return older ? "Ирвела 52x/72x"_w : "Ирвела K7"_w;
    default:
      return "";
  }
}

}  // namespace

unsigned TKSplDrv::GetName(int kind, char* text, int language) {
  if (IsKind(kind) && text != nullptr) {
    const char* name = NameOf(kind == static_cast<int>(Protocol::kOlder), language);
    std::memcpy(text, name, std::strlen(name) + 1);
  }
  return kKinds;
}

unsigned TKSplDrv::GetBaud(int kind, int index, int* speed) {
  if (!IsKind(kind)) return 0;
  constexpr int kK7Speeds[] = {2400, 4800, 9600, 19200};
  const bool older = kind == static_cast<int>(Protocol::kOlder);
  if (speed != nullptr) *speed = !older && index >= 1 && index <= 4 ? kK7Speeds[index - 1] : 2400;
  return older ? 1 : 4;
}

unsigned TKSplDrv::CanReadGroup(int kind, char letter) {
  return IsKind(kind) && letter != '\0' && std::strchr(kOfferedGroups, letter) != nullptr ? 1 : 0;
}

unsigned TKSplDrv::GetNumberLimit(int /*kind*/, char letter, int* limit) {
  if (letter != 'N') return 0;
  if (limit != nullptr) *limit = kLargestNumber;
  return 1;
}

bool TKSplDrv::OpenPort() {
  return port != nullptr && port->SetBuffers(kBufferSize, kBufferSize) &&
         port->SetLine(1, 0, baud, kDataBits, kParityEven, kOneStopBit) &&
         port->SetTimeouts(5000, 0, 5000, 100, 1000) && port->Control(kControlOpen);
}

unsigned TKSplDrv::Start(int kind) {
  mode = kind;
  return OpenPort() && TavDrvV1::Start(PollThread) != 0 ? 1 : 0;
}

unsigned TKSplDrv::Stop() { return TavDrvV1::Stop() != 0 ? 1 : 0; }

void* TKSplDrv::Destroy(unsigned flags) { return TavDrvV1::Destroy(flags); }
