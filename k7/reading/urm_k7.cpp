// A whole reading of a K7 instrument.
#include <new>

#include "common/format.h"
#include "driver/reader.h"
#include "k7/link/messages.h"
#include "k7/models/catalogue.h"
#include "k7/reading/plan.h"
#include "k7/reading/sections.h"
#include "k7/session/session.h"

namespace k7 {
namespace {

// Holds the buffers of every layer, 130 KB: one allocation, none while reading.
class UrmK7 final : public Reader {
 public:
  explicit UrmK7(TavDrvV1& driver)
      : driver_(driver),
        transport_(driver),
        out_(driver),
        requests_(driver, transport_),
        session_(driver, transport_, requests_, kIntroductions) {}

  Ending Run() override;

 private:
  bool Open();
  bool Answers(FrameMode mode, const char* name, const char* answered);
  void Introduce();
  Ending ReadSystems();

  TavDrvV1& driver_;
  Transport transport_;
  RecordStream out_;
  Requests requests_;
  Session session_;
};

Ending UrmK7::Run() {
  if (!Open()) {
    Say(driver_, "error", "Init");
    return Ending::kFailed;
  }
  if (!session_.ReadBasic()) return Ending::kFailed;
  Introduce();
  if (!session_.ReadClock()) return Ending::kFailed;
  return ReadSystems();
}

bool UrmK7::Open() {
  return Answers(FrameMode::kLong, "FULL", "FULL OK") ||
         Answers(FrameMode::kShort, "SHORT", "SHORT OK");
}

bool UrmK7::Answers(FrameMode mode, const char* name, const char* answered) {
  Say(driver_, name, "Init...");
  if (!session_.Connect(static_cast<std::uint8_t>(driver_.numberN), mode)) return false;
  Say(driver_, answered, "Init");
  return true;
}

// The titles take these texts from the driver object.
void UrmK7::Introduce() {
  const Identity& identity = session_.GetIdentity();
  common::SetText(driver_.typeText, identity.introduction->name);
  common::SetText(driver_.versionText, identity.devVersion);
  common::SetText(driver_.numberText, identity.devNumber);
  Say(driver_, identity.introduction->name, "Tip");
  Say(driver_, identity.devVersion, "Version");
  Say(driver_, identity.devNumber, "Numer");
}

// All systems are read, also after one that failed or that the host stopped: its ReadStop has
// cleared the request.
Ending UrmK7::ReadSystems() {
  const Identity& identity = session_.GetIdentity();
  const Model& model = ModelOf(identity.introduction->devType);
  Sections sections(driver_, requests_, out_, identity, model);
  Plan plan(driver_, out_, sections);
  if (model.commonDatabase && !plan.ReadCommonDatabase()) return Ending::kFailed;
  Ending result = Ending::kFailed;
  for (const std::uint8_t system : model.systems) {
    if (plan.ReadPlan(system)) result = Ending::kSucceeded;
    if (out_.Refused()) return Ending::kFailed;
  }
  return result;
}

}  // namespace
}  // namespace k7

std::unique_ptr<Reader> MakeK7Reader(TavDrvV1& driver) {
  return std::unique_ptr<Reader>(new (std::nothrow) k7::UrmK7(driver));
}
