#include "older/session/attempts.h"

#include <algorithm>

#include "common/format.h"
#include "platform/platform.h"

namespace older {
namespace {

// A host that asks for more attempts than this gets them only while it does not ask to stop: its
// stop must end any loop.
constexpr int kAttemptsThatIgnoreStop = 32;

// The longest pause that is not cut up to look at the host's stop.
constexpr unsigned kWholePause = 60'000;  // ms

}  // namespace

Confirmation ForArchives(const Policy& policy) {
  return policy.doubleReading == 0 ? Confirmation::kNone : Confirmation::kEqualReply;
}

Confirmation ForOthers(const Policy& policy) {
  return policy.doubleReading <= 1 ? Confirmation::kNone : Confirmation::kNever;
}

bool AttemptLoop::Take(ExchangeError error) {
  error_ = error;
  if (error == ExchangeError::kNone) {
    switch (plan_.confirmation) {
      case Confirmation::kNone:
        return TakeConfirmed();
      case Confirmation::kEqualReply:
        if (haveFirst_) return TakeSecond();
        TakeFirst();
        return false;
      case Confirmation::kNever:
        // No attempt is counted, so only the host's stop ends an instrument that answers well.
        ended_ = driver_.IsStop() != 0;
        return false;
    }
  }
  if (error == plan_.final) {
    ended_ = true;
    return false;
  }
  if (plan_.report == Report::kAttemptAlone) return Spend(common::Format("%d", Number()));
  return Spend(common::Format("%d Error: %d", Number(), static_cast<int>(error)));
}

void AttemptLoop::TakeFirst() {
  std::copy(plan_.record.begin(), plan_.record.end(), plan_.first.begin());
  haveFirst_ = true;
}

bool AttemptLoop::TakeSecond() {
  haveFirst_ = false;
  if (std::equal(plan_.record.begin(), plan_.record.end(), plan_.first.begin())) {
    return TakeConfirmed();
  }
  return Spend(common::Format("%d Error Cmp: %d", Number(), 0));
}

// The validity test fails whenever it is switched on, whatever the record holds: intended.
bool AttemptLoop::TakeConfirmed() {
  if (plan_.validity && policy_.validityTest) {
    return Spend(common::Format("%d Error Valid: %d", Number(), 0));
  }
  accepted_ = ended_ = true;
  return false;
}

bool AttemptLoop::Spend(const char* text) {
  driver_.MessageTav(nullptr, text, plan_.name, 0);
  ++attempt_;
  Pause();
  if (attempt_ > kAttemptsThatIgnoreStop && driver_.IsStop() != 0) ended_ = true;
  return true;
}

void AttemptLoop::Pause() {
  unsigned left = policy_.pause;
  for (; left > kWholePause && driver_.IsStop() == 0; left -= kWholePause) {
    platform::Sleep(kWholePause);
  }
  if (left > 0 && left <= kWholePause) platform::Sleep(left);
}

}  // namespace older
