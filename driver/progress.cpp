// Progress and the final report of a reading.
#include <cmath>
#include <limits>

#include "TKSplDrv/driver.h"
#include "platform/platform.h"

namespace {

constexpr int kSucceeded = 101;

// Truncated; beyond an int the nearest one, and what is no number is 0.
int Whole(float value) {
  constexpr float kBound = 2147483648.0F;  // 2 to the power 31
  if (value >= kBound) return std::numeric_limits<int>::max();
  if (value < -kBound) return std::numeric_limits<int>::min();
  return std::isnan(value) ? 0 : static_cast<int>(value);
}

}  // namespace

int TavDrvV1::GetPr() {
  const platform::LockGuard guard(prLock);
  return Whole(progress);
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
