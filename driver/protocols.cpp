#include "driver/protocols.h"

#include "common/cp1251.h"

namespace {

using namespace common::literals;
using tav::ReadGroup;

constexpr int kOlderSpeeds[] = {2400};
constexpr int kK7Speeds[] = {2400, 4800, 9600, 19200};
constexpr ReadGroup kGroups[] = {ReadGroup::kDatabase, ReadGroup::kLogs, ReadGroup::kHours,
                                 ReadGroup::kMonths,   ReadGroup::kDays, ReadGroup::kCurrent};

constexpr Protocol kProtocols[] = {
    {tav::Mode::kOlder, "Irvela 52x/72x", "Ирвела 52x/72x"_w, kOlderSpeeds, kGroups, 255, 0,
     MakeOlderReader},
    {tav::Mode::kK7, "Irvela K7", "Ирвела K7"_w, kK7Speeds, kGroups, 255, 1, MakeK7Reader},
};

}  // namespace

std::span<const Protocol> Protocols() { return kProtocols; }

const Protocol* FindProtocol(int kind) {
  for (const Protocol& protocol : kProtocols) {
    if (static_cast<int>(protocol.mode) == kind) return &protocol;
  }
  return nullptr;
}
