// The one retry loop: asks, reports each failed attempt, pauses, and where wanted reads twice and
// compares, until a reply is accepted or the attempts are spent.
#pragma once

#include <cstdint>
#include <span>

#include "older/link/frame.h"
#include "older/session/policy.h"

namespace older {

// What has to follow a good reply before it is accepted.
enum class Confirmation {
  kNone,
  kEqualReply,  // a second one that is equal; a failure between the two keeps the first
  kNever,       // every good reply counts as a first one, and none is accepted: intended
};

// The archive reads and the identification read twice for any value of parameter 2, the others from
// 2 on.
Confirmation ForArchives(const Policy& policy);
Confirmation ForOthers(const Policy& policy);

// How a failed exchange is reported.
enum class Report { kAttemptAndError, kAttemptAlone };

struct AttemptPlan {
  const char* name;  // second text of every report
  Confirmation confirmation = Confirmation::kNone;
  bool validity = false;                       // whether replies undergo the validity test
  ExchangeError final = ExchangeError::kNone;  // no further attempt would mend this one
  Report report = Report::kAttemptAndError;
  // What is compared when a reply has to be equal to the one before, and as much room to keep that.
  std::span<const std::uint8_t> record = {};
  std::span<std::uint8_t> first = {};
};

struct ReadResult {
  bool done = false;
  // Of the last failed exchange; kNone when the last attempt failed on comparison or validity.
  ExchangeError error = ExchangeError::kNone;
};

// The state of one loop. Use Attempt, not this.
class AttemptLoop {
 public:
  AttemptLoop(TavDrvV1& driver, const Policy& policy, const AttemptPlan& plan)
      : driver_(driver), policy_(policy), plan_(plan) {}

  bool More() const { return !ended_ && attempt_ <= policy_.attempts; }
  // Takes what the exchange gave. Returns whether an attempt was spent on it.
  bool Take(ExchangeError error);
  ReadResult Result() const { return {accepted_, error_}; }

 private:
  void TakeFirst();
  bool TakeSecond();
  bool TakeConfirmed();
  bool Spend(const char* text);
  void Pause();
  int Number() const { return static_cast<int>(attempt_); }

  TavDrvV1& driver_;
  const Policy& policy_;
  const AttemptPlan& plan_;
  long long attempt_ = 1;  // wide enough to pass any attempt count
  bool ended_ = false;
  bool accepted_ = false;
  bool haveFirst_ = false;
  ExchangeError error_ = ExchangeError::kNone;
};

// Runs the plan. ask() performs one exchange, fills the record and returns an ExchangeError;
// beforeNext() runs after a failed attempt and its pause when another attempt is still to come.
template <typename Ask, typename BeforeNext>
ReadResult Attempt(TavDrvV1& driver, const Policy& policy, const AttemptPlan& plan, Ask ask,
                   BeforeNext beforeNext) {
  AttemptLoop loop(driver, policy, plan);
  while (loop.More()) {
    if (loop.Take(ask()) && loop.More()) beforeNext();
  }
  return loop.Result();
}

template <typename Ask>
ReadResult Attempt(TavDrvV1& driver, const Policy& policy, const AttemptPlan& plan, Ask ask) {
  return Attempt(driver, policy, plan, ask, [] {});
}

}  // namespace older
