// The poll routine of the older protocol: which instrument is there, and its reading.
#include <new>

#include "older/reading/reading.h"
#include "older/session/session.h"
#include "platform/platform.h"

namespace older {
namespace {

// Before a cycle that follows one without a single reply, so that a dead port, which fails at once,
// does not flood the host with messages.
constexpr unsigned kDeadCyclePause = 25;  // ms

// Until the host asks to stop; that end has no report of its own: intended.
Ending ReadContinuously(TKSplImpl& reader, const Model& model) {
  reader.SayNewValues();
  reader.progress.continuous = 1;
  while (reader.driver.IsStop() == 0) {
    if (!reader.link.TakeAnswered()) platform::Sleep(kDeadCyclePause);
    Nonstop(reader, model);
    if (reader.out.Refused()) return Ending::kFailed;
  }
  return Ending::kUnreported;
}

}  // namespace

Ending TKSplImpl::Run() {
  if (!IdentifyWithAttempts(*this, 0)) {
    Say("Error Init", "Start Opros");
    return Ending::kFailed;
  }
  SendIdentity(*this);
  progress = {};
  const Model* model = FindModel(type);
  if (model == nullptr || !ReadInstrument(*this, *model) || out.Refused()) return Ending::kFailed;
  return policy.continuous ? ReadContinuously(*this, *model) : Ending::kSucceeded;
}

}  // namespace older

std::unique_ptr<Reader> MakeOlderReader(TavDrvV1& driver) {
  return std::unique_ptr<Reader>(new (std::nothrow) older::TKSplImpl(driver));
}
