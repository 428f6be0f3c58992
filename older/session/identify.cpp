#include <algorithm>

#include "common/cp1251.h"
#include "common/format.h"
#include "older/session/session.h"

namespace older {
namespace {

using namespace common::literals;

constexpr unsigned kReplySize = 8;
constexpr std::uint8_t kFamilyHeat = 'T';
constexpr std::uint8_t kModel521 = 0x29;

// An instrument by bytes 3 and 4 of the identification reply.
struct Identity {
  std::uint8_t family;
  std::uint8_t model;
  TypeCode type;
  const char* name;
  const char* key;
};

constexpr Identity kIdentities[] = {
    {kFamilyHeat, kModel521, TypeCode::k521, "УРМ521"_w, "urm521"},
    {kFamilyHeat, 0x2A, TypeCode::k522, "УРМ522"_w, "urm522"},
    {kFamilyHeat, 0x2B, TypeCode::k523, "УРМ523"_w, "urm523"},
    {0x92, 0x29, TypeCode::k521x, "УРМ521"_w, "urm521_10"},
    {'G', 0x29, TypeCode::k721, "ДКГ721"_w, "dkg721"},
};

// Firmware of model 521 by byte 5 of the identification reply; null where none is known.
constexpr const char* kVersions521[] = {
    "X.X.0", "X.X.7", "vX.X.9", "vX.2.10", "vX.2.11", "vX.2.12", "vX.2.13", "vX.2.14",
    nullptr, nullptr, "wX.X.9", "wX.2.10", "wX.2.11", "wX.2.12", "wX.2.13", "wX.2.14",
};

const char* Version521(std::uint8_t index) {
  return index < std::size(kVersions521) ? kVersions521[index] : nullptr;
}

bool Fail(TKSplImpl& reader, const char* text) {
  reader.Say(text, "Error Version");
  return false;
}

void Adopt(TKSplImpl& reader, const Identity& model, std::uint8_t version) {
  reader.type = model.type;
  common::SetText(reader.driver.typeText, model.name);
  common::SetText(reader.modelKey, model.key);
  if (model.type != TypeCode::k521) {
    common::SetText(reader.driver.versionText, common::Format("V%d", version));
    return;
  }
  reader.versionIndex = version;
  const char* text = Version521(version);
  if (text == nullptr) reader.type = TypeCode::kUnknown521;
  common::SetText(reader.driver.versionText, text != nullptr ? text : "X.X.?");
}

// The place of the first byte that must not be as it is; -1 when there is none. The checksum byte
// is not among them: the instrument may send any, intended.
int FaultyByte(std::span<const std::uint8_t> reply, std::uint8_t number) {
  if (reply[0] != kStartByte) return 0;
  if (reply[1] != number) return 1;
  if (reply[2] != static_cast<std::uint8_t>(Function::kIdentify)) return 2;
  if (reply[7] != kEndByte) return 7;
  return -1;
}

}  // namespace

bool Identify(TKSplImpl& reader, std::uint8_t session) {
  reader.link.WakeUp();
  if (reader.link.Send({Function::kIdentify, {session}}) != ExchangeError::kNone) {
    return Fail(reader, "Not Write");
  }
  const int count = reader.link.ReadPlain(kReplySize);
  if (count != static_cast<int>(kReplySize)) return Fail(reader, common::Format("Read %d", count));

  const auto reply = reader.link.Received();
  const int faulty = FaultyByte(reply, static_cast<std::uint8_t>(reader.driver.numberN));
  if (faulty >= 0) return Fail(reader, common::Format("%d", faulty));
  const auto* model = std::find_if(
      std::begin(kIdentities), std::end(kIdentities),
      [&](const Identity& known) { return known.family == reply[3] && known.model == reply[4]; });
  // The text goes out as it stands, without a number: intended.
  if (model == std::end(kIdentities)) return Fail(reader, "Read %h");
  Adopt(reader, *model, reply[5]);
  return true;
}

bool IdentifyWithAttempts(TKSplImpl& reader, std::uint8_t session) {
  // Two good replies always agree: it is only the same question that has to be answered twice.
  const AttemptPlan plan{.name = "PopitkaInit",
                         .confirmation = ForArchives(reader.policy),
                         .report = Report::kAttemptAlone};
  return Attempt(reader.driver, reader.policy, plan, {},
                 [&] {
                   return Identify(reader, session) ? ExchangeError::kNone
                                                    : ExchangeError::kReplyOther;
                 })
      .done;
}

void SendIdentity(TKSplImpl& reader) {
  reader.Say(reader.driver.typeText, "Tip");
  reader.Say(reader.driver.versionText, "Version");
}

}  // namespace older
