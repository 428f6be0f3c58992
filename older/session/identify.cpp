#include <algorithm>

#include "common/format.h"
#include "older/session/session.h"

namespace older {
namespace {

bool Fail(TKSplImpl& reader, const char* text) {
  reader.Say(text, "Error Version");
  return false;
}

void Adopt(TKSplImpl& reader, const Identity& identity, std::uint8_t version) {
  reader.instrument = &identity;
  reader.versionIndex = version;
  common::SetText(reader.driver.typeText, identity.name);
  common::SetText(reader.modelKey, identity.key);
  if (identity.versions.empty()) {
    common::SetText(reader.driver.versionText, common::Format("V%d", version));
    return;
  }
  const char* text = VersionText(identity, version);
  if (text == nullptr) reader.instrument = nullptr;
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
  const int count = reader.link.ReadPlain(kIdentificationSize);
  if (count != static_cast<int>(kIdentificationSize))
    return Fail(reader, common::Format("Read %d", count));

  const auto reply = reader.link.Received();
  const int faulty = FaultyByte(reply, static_cast<std::uint8_t>(reader.driver.numberN));
  if (faulty >= 0) return Fail(reader, common::Format("%d", faulty));
  const auto found =
      std::find_if(reader.known.begin(), reader.known.end(), [&](const Identity* identity) {
        return identity->family == reply[kFamilyAt] && identity->model == reply[kModelAt];
      });
  // The text goes out as it stands, without a number: intended.
  if (found == reader.known.end()) return Fail(reader, "Read %h");
  Adopt(reader, **found, reply[kVersionAt]);
  return true;
}

bool IdentifyWithAttempts(TKSplImpl& reader, std::uint8_t session) {
  // Two good replies always agree: it is only the same question that has to be answered twice.
  const AttemptPlan plan{.name = "PopitkaInit",
                         .confirmation = ForArchives(reader.policy),
                         .report = Report::kAttemptAlone};
  return Attempt(reader.driver, reader.policy, plan,
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
