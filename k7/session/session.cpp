#include "k7/session/session.h"

#include <algorithm>
#include <span>

#include "common/format.h"
#include "k7/link/messages.h"
#include "k7/link/tlv.h"

namespace k7 {
namespace {

constexpr std::uint32_t kLargestUnit = 2;

std::uint8_t ReadUnit(TlvWalk& items) {
  return static_cast<std::uint8_t>(std::min(items.ItemText(), kLargestUnit));
}

}  // namespace

bool Session::Connect(std::uint8_t address, FrameMode mode) {
  transport_.Open(address, mode);
  transport_.WakeUp(requests_.LastReply());
  constexpr std::uint8_t kNoData[4] = {};
  const auto received = transport_.K7Query(kIdentify, kNoData, requests_.LastReply());
  return Replied(driver_, kIdentify, received, "error start") && Identify();
}

bool Session::Identify() {
  const auto& reply = requests_.LastReply().bytes;
  const auto code = static_cast<std::uint16_t>(reply[0] | (reply[1] << 8));
  identity_.introduction = Find(code);
  if (identity_.introduction == nullptr) {
    // The blank at the end tells this from the other error at the start: intended.
    Say(driver_, common::Format("undefined %X", unsigned{code}), "error start ");
    return false;
  }
  common::SetText(identity_.devVersion, common::Format("V%d", int{reply[kVersionAt]}));
  return true;
}

const Introduction* Session::Find(std::uint16_t code) const {
  for (const Introduction* introduction : known_) {
    if (introduction->code == code) return introduction;
  }
  return nullptr;
}

bool Session::ReadBasic() {
  const auto received = requests_.QueryParams(0, identity_.introduction->basicParameters);
  if (!received) return true;
  if (!Replied(driver_, kReadParameters, received, "error basic")) return false;
  DecodeBasic();
  return true;
}

void Session::DecodeBasic() {
  TlvWalk items(requests_.LastReply().bytes);
  std::uint8_t number[sizeof identity_.devNumber - 1] = {};
  items.ItemBytes(number);
  std::copy(std::begin(number), std::end(number), identity_.devNumber);
  identity_.pressUnit1 = ReadUnit(items);
  identity_.pressUnit2 =
      identity_.introduction->ownHeatUnit ? ReadUnit(items) : identity_.pressUnit1;
}

bool Session::ReadClock() {
  if (!requests_.ReadParams(0, kTimeParameter, 2, "error dt")) return false;
  TlvWalk items(requests_.LastReply().bytes);
  items.ItemTime(identity_.devClock);
  items.ItemDate(identity_.devClock);
  Say(driver_, DateText(identity_.devClock), "DT");
  return true;
}

}  // namespace k7
