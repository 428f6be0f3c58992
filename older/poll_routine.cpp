// The poll routine of the older protocol: which instrument is there, its reading, the final report.
#include <new>

#include "older/reading/reading.h"
#include "older/session/session.h"

namespace older {
namespace {

// Until the host asks to stop; that end has no report of its own: intended.
void ReadContinuously(TKSplImpl& reader, const Model& model) {
  reader.SayNewValues();
  reader.progress.continuous = 1;
  while (reader.driver.IsStop() == 0) {
    Nonstop(reader, model);
    if (reader.out.Refused()) {
      reader.driver.ReadStop(false);
      return;
    }
  }
}

}  // namespace

int TKSplImpl::Run() {
  if (!IdentifyWithAttempts(*this, 0)) {
    Say("Error Init", "Start Opros");
    driver.ReadStop(false);
    return 0;
  }
  SendIdentity(*this);
  progress = {};
  const Model* model = FindModel(type);
  if (model == nullptr || !ReadInstrument(*this, *model) || out.Refused()) {
    driver.ReadStop(false);
  } else if (policy.continuous) {
    ReadContinuously(*this, *model);
  } else {
    driver.ReadStop(true);
  }
  return 0;
}

}  // namespace older

std::unique_ptr<Reader> MakeOlderReader(TavDrvV1& driver) {
  return std::unique_ptr<Reader>(new (std::nothrow) older::TKSplImpl(driver));
}
