// The poll routine of the older protocol: which instrument is there, and its reading.
#include <new>

#include "driver/reader.h"
#include "older/models/catalogue.h"
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

Ending Poll(TKSplImpl& reader) {
  if (!IdentifyWithAttempts(reader, 0)) {
    reader.Say("Error Init", "Start Opros");
    return Ending::kFailed;
  }
  SendIdentity(reader);
  reader.progress = {};
  const Model* model = FindModel(reader.instrument);
  if (model == nullptr || !ReadInstrument(reader, *model) || reader.out.Refused()) {
    return Ending::kFailed;
  }
  return reader.policy.continuous ? ReadContinuously(reader, *model) : Ending::kSucceeded;
}

class OlderReader final : public Reader {
 public:
  explicit OlderReader(TavDrvV1& driver) : state_(driver, kIdentities) {}
  Ending Run() override { return Poll(state_); }

 private:
  TKSplImpl state_;
};

}  // namespace
}  // namespace older

std::unique_ptr<Reader> MakeOlderReader(TavDrvV1& driver) {
  return std::unique_ptr<Reader>(new (std::nothrow) older::OlderReader(driver));
}
