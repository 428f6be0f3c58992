// Progress and the final report of a reading.
#include "TKSplDrv/driver.h"
#include "platform/platform.h"

namespace {

constexpr int kSucceeded = 101;

}  // namespace

int TavDrvV1::GetPr() {
  const platform::LockGuard guard(prLock);
  return static_cast<int>(progress);
}

void TavDrvV1::SetPr(int value) {
  const platform::LockGuard guard(prLock);
  progress = static_cast<float>(value);
}

void TavDrvV1::IncPr(int units) {
  const platform::LockGuard guard(prLock);
  progress = progress + static_cast<float>(units) * prStep;
  if (progress >= 100.0F) progress = 99.0F;
}

void TavDrvV1::InertPr() {
  const platform::LockGuard guard(prLock);
  if (progress > 0.0F) progress = -progress;
  if (progress == 0.0F) progress = -1.0F;
}

unsigned TavDrvV1::ReadStop(bool ok) {
  {
    const platform::LockGuard guard(stopLock);
    // The report answers a stop request and so clears it: intended.
    stopRequest = 0;
    if (ok) {
      SetPr(kSucceeded);
    } else {
      InertPr();
    }
  }
  MessageTav(nullptr, ok ? "OK" : "Error", "ReadStop", 0);
  return 1;
}
