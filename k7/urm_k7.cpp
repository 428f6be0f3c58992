// A whole reading of a K7 instrument.
#include <new>

#include "common/format.h"
#include "driver/reader.h"
#include "k7/link/messages.h"
#include "k7/plan.h"
#include "k7/sections.h"
#include "k7/session.h"

namespace k7 {
namespace {

// Holds the buffers of every layer, about half a megabyte: one allocation, none while reading.
class UrmK7 final : public Reader {
 public:
  explicit UrmK7(TavDrvV1& driver)
      : driver_(driver),
        transport_(driver),
        out_(driver),
        requests_(driver, transport_, out_),
        session_(driver, transport_, requests_),
        sections_(driver, requests_, out_, session_.GetIdentity()),
        plan_(driver, out_, sections_) {}

  Ending Run() override;

 private:
  bool Open();
  bool Answers(FrameMode mode, const char* name, const char* answered);
  void Introduce();
  Ending ReadSystems(const Model& model);

  TavDrvV1& driver_;
  Transport transport_;
  RecordStream out_;
  Requests requests_;
  Session session_;
  Sections sections_;
  Plan plan_;
};

Ending UrmK7::Run() {
  if (!Open()) {
    Say(driver_, "error", "Init");
    return Ending::kFailed;
  }
  if (!session_.ReadBasic()) return Ending::kFailed;
  Introduce();
  if (!session_.ReadClock()) return Ending::kFailed;
  const Model* const model = FindModel(session_.GetIdentity().devType);
  if (model == nullptr) {
    Say(driver_, "device not supported", "error");
    return Ending::kFailed;
  }
  sections_.SetModel(*model);
  return ReadSystems(*model);
}

bool UrmK7::Open() {
  return Answers(FrameMode::kLong, "FULL", "FULL OK") ||
         Answers(FrameMode::kShort, "SHORT", "SHORT OK");
}

bool UrmK7::Answers(FrameMode mode, const char* name, const char* answered) {
  Say(driver_, name, "Init...");
  if (session_.Connect(static_cast<std::uint8_t>(driver_.numberN), mode) < 1) return false;
  Say(driver_, answered, "Init");
  return true;
}

// The titles take these texts from the host object.
void UrmK7::Introduce() {
  const Identity& identity = session_.GetIdentity();
  common::SetText(driver_.typeText, identity.devName);
  common::SetText(driver_.versionText, identity.devVersion);
  common::SetText(driver_.numberText, identity.devNumber);
  Say(driver_, identity.devName, "Tip");
  Say(driver_, identity.devVersion, "Version");
  Say(driver_, identity.devNumber, "Numer");
}

// All systems are read, also after one that failed or that the host stopped: its ReadStop has
// cleared the request.
Ending UrmK7::ReadSystems(const Model& model) {
  if (model.commonDatabase && !plan_.ReadCommonDatabase()) return Ending::kFailed;
  Ending result = Ending::kFailed;
  for (const std::uint8_t system : model.systems) {
    if (plan_.ReadPlan(system)) result = Ending::kSucceeded;
    if (out_.Refused()) return Ending::kFailed;
  }
  return result;
}

}  // namespace
}  // namespace k7

std::unique_ptr<Reader> MakeK7Reader(TavDrvV1& driver) {
  return std::unique_ptr<Reader>(new (std::nothrow) k7::UrmK7(driver));
}
