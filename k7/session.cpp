#include "k7/session.h"

#include <algorithm>
#include <span>

#include "common/format.h"
#include "k7/link/messages.h"
#include "k7/link/tlv.h"

namespace k7 {
namespace {

constexpr std::uint8_t kIdentify = 0x3F;
constexpr std::uint32_t kLargestUnit = 2;
constexpr std::uint16_t kTimeParameter = 0x0400;  // the date is the next one

std::uint8_t ReadUnit(TlvWalk& items) {
  return static_cast<std::uint8_t>(std::min(items.ItemText(), kLargestUnit));
}

}  // namespace

int Session::Connect(std::uint8_t address, FrameMode mode) {
  identity_.devType = 0;
  transport_.Open(address, mode);
  transport_.WakeUp(requests_.LastReply());
  constexpr std::uint8_t kNoData[4] = {};
  const int result = transport_.K7Query(kIdentify, kNoData, requests_.LastReply());
  if (result < 1) return result;
  if (result != kIdentify) {
    SayWrongCommand(driver_, kIdentify, result, "error start");
    return kNotIdentified;
  }
  return Identify();
}

// The reply: the model's code, a byte that is not used, the version.
int Session::Identify() {
  const auto& reply = requests_.LastReply().bytes;
  const auto code = static_cast<std::uint16_t>(reply[0] | (reply[1] << 8));
  const Introduction* const introduction = FindIntroduction(code);
  if (introduction == nullptr) {
    common::SetText(identity_.devName, "NONAME");
    // The blank at the end tells this from the other error at the start: intended.
    Say(driver_, common::Format("undefined %X", unsigned{code}), "error start ");
    return kNotIdentified;
  }
  common::SetText(identity_.devName, introduction->name);
  identity_.devType = introduction->devType;
  common::SetText(identity_.devVersion, common::Format("V%d", int{reply[3]}));
  return static_cast<int>(identity_.devType);
}

bool Session::ReadBasic() {
  const Model* const model = FindModel(identity_.devType);
  if (model == nullptr) return true;
  std::fill(std::begin(identity_.devNumber), std::end(identity_.devNumber), '\0');
  const int result = requests_.QueryParams(0, model->basicParameters);
  if (result <= 0) return result != 0;
  if (result != kReadParameters) {
    SayWrongCommand(driver_, kReadParameters, result, "error basic");
    return false;
  }
  DecodeBasic(*model);
  return true;
}

void Session::DecodeBasic(const Model& model) {
  TlvWalk items(requests_.LastReply().bytes);
  std::uint8_t number[sizeof identity_.devNumber - 1] = {};
  items.ItemBytes(number);
  std::copy(std::begin(number), std::end(number), identity_.devNumber);
  identity_.pressUnit1 = ReadUnit(items);
  identity_.pressUnit2 = model.ownHeatUnit ? ReadUnit(items) : identity_.pressUnit1;
  identity_.basicA = items.ItemUInt();
  identity_.basicB = static_cast<std::uint16_t>(items.ItemUInt());
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
